// The module Cindrel: the commands getTalmatXml and getTaloptXml and the exception Cindrel.error,
// the same under every interpreter. The entry and the text of each interpreter are in its glue.
#include "module/python_module.h"

#include <exception>
#include <new>
#include <string>

#include "archive/text_conversion.h"
#include "module/file_routing.h"
#include "module/material_conversion.h"
#include "module/options_conversion.h"

namespace TalvexCore {

namespace {

PyObject* moduleError = nullptr;

using Conversion = void (*)(const std::u16string& path, std::string& text, const AssetXmlWriter::Utf8FlushSink& sink);

// Runs a command; no C++ exception passes into the interpreter.
PyObject* runCommand(const char* command, PyObject* args, PyObject* keywords,
                     bool (*matches)(const std::u16string&), Conversion conversion)
{
    try {
        std::u16string path;
        if (!parsePathArgument(args, keywords, command, path)) return nullptr;
        // A path of the wrong kind answers null with no exception set, as the command always has.
        if (!matches(path)) return nullptr;
        // The file is read and converted with the interpreter's lock released, so that the host's
        // other threads go on; nothing in between touches the interpreter but the result's builder.
        const std::unique_ptr<ResultBuilder> result = makeResultBuilder();
        std::exception_ptr failure;
        PyThreadState* released = PyEval_SaveThread();
        try {
            std::string text;
            text.reserve(std::size_t(64) << 10);  // most documents whole, with no growing on the way
            conversion(path, text, [&result, &released](std::string& t) { result->take(t, false, released); });
            result->take(text, true, released);
        } catch (...) {
            failure = std::current_exception();
        }
        PyEval_RestoreThread(released);
        if (failure) std::rethrow_exception(failure);
        return result->finish();
    } catch (const std::bad_alloc&) {
        return PyErr_NoMemory();
    } catch (const std::exception& e) {
        PyErr_SetString(PyExc_RuntimeError, e.what());
        return nullptr;
    } catch (...) {
        PyErr_SetString(PyExc_RuntimeError, "unexpected failure in the conversion");
        return nullptr;
    }
}

PyObject* getTalmatXml(PyObject* /*self*/, PyObject* args, PyObject* keywords)
{
    return runCommand("getTalmatXml", args, keywords, isMaterialFilePath,
                      [](const std::u16string& path, std::string& text, const AssetXmlWriter::Utf8FlushSink& sink) {
                          writeMaterialFileXml(path, text, sink, nullptr, LoneSurrogates::Kept);
                      });
}

PyObject* getTaloptXml(PyObject* /*self*/, PyObject* args, PyObject* keywords)
{
    return runCommand("getTaloptXml", args, keywords, isOptionsFilePath,
                      [](const std::u16string& path, std::string& text, const AssetXmlWriter::Utf8FlushSink& sink) {
                          writeOptionsFileXml(path, text, sink, LoneSurrogates::Kept);
                      });
}

// A command that takes keywords, in the method table's plain function type.
PyCFunction withKeywords(PyObject* (*command)(PyObject*, PyObject*, PyObject*))
{
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(command));
}

}  // namespace

PyMethodDef moduleMethods[] = {
    {"getTalmatXml", withKeywords(getTalmatXml), METH_VARARGS | METH_KEYWORDS,
     "Gets the xml from a talmat file."},
    {"getTaloptXml", withKeywords(getTaloptXml), METH_VARARGS | METH_KEYWORDS,
     "Gets the xml from a talopt file."},
    {nullptr, nullptr, 0, nullptr},
};

const char moduleDoc[] =
    "Turns the rendering engine's stored material files (.talmat, .numat) and render-options\n"
    "files (.talopt, .nuopt) into their XML asset text.\n\n"
    "getTalmatXml(path) and getTaloptXml(path) return the XML of one file; a file that is not\n"
    "binary comes back as its text, and one that cannot be read as an empty text.";

bool addModuleVersion(PyObject* module)
{
    return PyModule_AddStringConstant(module, "__version__", CINDREL_VERSION) == 0;
}

bool addModuleError(PyObject* module)
{
    static char name[] = "Cindrel.error";  // Python 2 takes the name as a mutable text
    PyObject* error = PyErr_NewException(name, nullptr, nullptr);
    if (error == nullptr) return false;
    Py_XDECREF(moduleError);
    moduleError = error;
    Py_INCREF(error);  // one reference for the module's attribute, one kept here
    if (PyModule_AddObject(module, "error", error) < 0) {
        Py_DECREF(error);
        return false;
    }
    return true;
}

void releaseModuleError()
{
    Py_CLEAR(moduleError);
}

}  // namespace TalvexCore
