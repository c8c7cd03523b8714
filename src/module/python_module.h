// The module Cindrel as each interpreter's glue sees it: the commands and the exception, which are
// the same under every interpreter, and the two text conversions, which each glue defines for its
// interpreter's Unicode object.
#pragma once

#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <memory>
#include <string>

#include "module/document_pieces.h"

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
// comes back as the same lone surrogate. `prepareResult` takes the pieces over with the
// interpreter's lock released and does there whatever needs no interpreter; `build` runs with the
// lock held and answers the object, or null with the interpreter's exception set.
class PreparedResult {
public:
    virtual ~PreparedResult() = default;
    virtual PyObject* build() = 0;
};
std::unique_ptr<PreparedResult> prepareResult(DocumentPieces&& pieces);

}  // namespace TalvexCore
