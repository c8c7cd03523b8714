// The module Cindrel as each interpreter's glue sees it: the commands and the exception, which are
// the same under every interpreter, and the two text conversions, which each glue defines for its
// interpreter's Unicode object.
#pragma once

#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <memory>
#include <string>

namespace TalvexCore {

// The two commands, getTalmatXml and getTaloptXml, and the terminating entry.
extern PyMethodDef moduleMethods[];

// Creates Cindrel.error, keeps a reference to it and adds it to the module. False, with the
// interpreter's exception set, when that fails.
bool addModuleError(PyObject* module);
void releaseModuleError();

// The module's doc string and its __version__.
extern const char moduleDoc[];
bool addModuleVersion(PyObject* module);

// Defined by the glue. The path argument of `command`, given by position or as the keyword "path",
// up to its first zero character; false, with the interpreter's exception set, when the arguments
// are refused.
bool parsePathArgument(PyObject* args, PyObject* keywords, const char* command, std::u16string& path);

// Defined by the glue. The result of a command: the document's UTF-8 up to its first zero
// character as a new Unicode object; a lone surrogate of the text stands as its own three bytes and
// comes back as the same lone surrogate. The conversion runs with the interpreter's lock released
// (`released` holds the thread's state) and hands its text to `take` as it grows, whole characters
// at a time, and once more with `last` set; `take` keeps what it needs and may empty the text, and
// may take the lock back for a moment. `finish` runs with the lock held and answers the object, or
// null with the interpreter's exception set.
class ResultBuilder {
public:
    virtual ~ResultBuilder() = default;
    virtual void take(std::string& text, bool last, PyThreadState*& released) = 0;
    virtual PyObject* finish() = 0;
};
std::unique_ptr<ResultBuilder> makeResultBuilder();

}  // namespace TalvexCore
