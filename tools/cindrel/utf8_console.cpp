#include "utf8_console.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>

#include "archive/text_conversion.h"
#endif

namespace CindrelTool {

Utf8Console::Utf8Console(int argc, char** argv)
{
#ifdef _WIN32
    int count = 0;
    if (wchar_t** wide = ::CommandLineToArgvW(::GetCommandLineW(), &count)) {
        for (int i = 0; i < count; ++i) {
            const std::wstring_view units(wide[i]);
            texts.push_back(TalvexCore::wideToFileName(std::u16string(units.begin(), units.end())));
        }
        ::LocalFree(wide);
    } else {
        texts.assign(argv, argv + argc);
    }
    ::_setmode(::_fileno(stdout), _O_BINARY);
    // The console keeps its code page after the command ends: it gets back the one it had.
    static const UINT previousCodePage = ::GetConsoleOutputCP();
    if (previousCodePage != 0 && previousCodePage != CP_UTF8 && ::SetConsoleOutputCP(CP_UTF8))
        std::atexit([] { ::SetConsoleOutputCP(previousCodePage); });
    // The progress line rewrites itself with terminal sequences, which a console takes when asked.
    const HANDLE errors = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    if (::GetConsoleMode(errors, &mode)) ::SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
#else
    texts.assign(argv, argv + argc);
#endif
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
}

}  // namespace CindrelTool
