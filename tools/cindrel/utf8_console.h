// Utf8Console: the command's arguments and standard streams as UTF-8 bytes, on every system.
#pragma once

#include <string>
#include <vector>

namespace CindrelTool {

// Elsewhere the arguments are the bytes given. On Windows they are taken from the wide command
// line (the narrow one loses every character outside the code page), standard output carries the
// documents' bytes without turning line ends into CR LF, and a console shows UTF-8.
class Utf8Console {
public:
    Utf8Console(int argc, char** argv);
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

    int argc() const { return static_cast<int>(texts.size()); }
    char** argv() { return pointers.data(); }

private:
    std::vector<std::string> texts;
    std::vector<char*> pointers;  // to each text, then a null pointer, as main's argv
};

}  // namespace CindrelTool
