// Runs the cindrel command named by CINDREL_TOOL with the given arguments, as a shell would, and
// takes its standard output's bytes and its exit status; standard error is dropped.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>

#include "archive/file_path.h"
#include "archive/text_conversion.h"
#else
#include <sys/wait.h>
#endif

namespace TalvexTest {

struct ToolRun {
    int status = -1;
    std::string output;
};

// The command, or null where the build did not name it.
inline const char* toolPath()
{
    return std::getenv("CINDREL_TOOL");
}

#ifdef _WIN32

// One argument of a command line as the runtime's parser takes it back.
inline std::wstring quotedArgument(const std::wstring& argument)
{
    std::wstring out = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'\\') {
            ++backslashes;
            continue;
        }
        out.append(c == L'"' ? 2 * backslashes + 1 : backslashes, L'\\');
        backslashes = 0;
        out += c;
    }
    out.append(2 * backslashes, L'\\');
    return out + L"\"";
}

// The arguments are UTF-8; the command gets them as a wide command line, as from a Windows shell.
inline std::optional<ToolRun> runTool(const std::vector<std::string>& arguments)
{
    const auto wide = [](const std::string& text) {
        const std::u16string units = TalvexCore::narrowToWide(text);
        return std::wstring(units.begin(), units.end());
    };
    std::wstring line = quotedArgument(TalvexCore::filePath(std::string(toolPath())).make_preferred().native());
    for (const std::string& argument : arguments) line += L" " + quotedArgument(wide(argument));

    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (!::CreatePipe(&readEnd, &writeEnd, &inherited, 0)) return std::nullopt;
    ::SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
    const HANDLE nul = ::CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     &inherited, OPEN_EXISTING, 0, nullptr);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = nul;
    startup.hStdOutput = writeEnd;
    startup.hStdError = nul;
    PROCESS_INFORMATION process{};
    const bool started = ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                          &startup, &process);
    ::CloseHandle(writeEnd);
    ::CloseHandle(nul);
    std::optional<ToolRun> run;
    if (started) {
        run.emplace();
        char buffer[65536];
        DWORD n = 0;
        while (::ReadFile(readEnd, buffer, sizeof buffer, &n, nullptr) && n > 0) run->output.append(buffer, n);
        ::WaitForSingleObject(process.hProcess, INFINITE);
        DWORD status = 0;
        ::GetExitCodeProcess(process.hProcess, &status);
        run->status = static_cast<int>(status);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
    }
    ::CloseHandle(readEnd);
    return run;
}

#else

inline std::string quotedArgument(const std::string& argument)
{
    std::string out = "'";
    for (const char c : argument) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

inline std::optional<ToolRun> runTool(const std::vector<std::string>& arguments)
{
    std::string line = quotedArgument(toolPath());
    for (const std::string& argument : arguments) line += " " + quotedArgument(argument);
    std::FILE* pipe = ::popen((line + " 2>/dev/null").c_str(), "r");
    if (pipe == nullptr) return std::nullopt;
    ToolRun run;
    char buffer[65536];
    std::size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) run.output.append(buffer, n);
    const int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

#endif

}  // namespace TalvexTest
