// The module Cindrel: the commands getTalmatXml and getTaloptXml and the exception Cindrel.error,
// the same under every interpreter. The entry and the text of each interpreter are in its glue.
#include "module/python_module.h"

#include <exception>
#include <new>
#include <string>

#include "module/file_routing.h"
#include "module/material_conversion.h"
#include "module/options_conversion.h"

namespace TalvexCore {

namespace {

PyObject* moduleError = nullptr;

// Runs a command; no C++ exception passes into the interpreter.
template <class Convert>
PyObject* runCommand(PyObject* args, bool (*matches)(const std::u16string&), Convert conversion)
{
    try {
        std::u16string path;
        if (!parsePathArgument(args, path)) return nullptr;
        // A path of the wrong kind answers null with no exception set, as the command always has.
        if (!matches(path)) return nullptr;
        return buildResult(conversion(path));
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

PyObject* getTalmatXml(PyObject* /*self*/, PyObject* args)
{
    return runCommand(args, isMaterialFilePath, materialFileToXml);
}

PyObject* getTaloptXml(PyObject* /*self*/, PyObject* args)
{
    return runCommand(args, isOptionsFilePath, optionsFileToXml);
}

}  // namespace

PyMethodDef moduleMethods[] = {
    {"getTalmatXml", getTalmatXml, METH_VARARGS, "Gets the xml from a talmat file."},
    {"getTaloptXml", getTaloptXml, METH_VARARGS, "Gets the xml from a talopt file."},
    {nullptr, nullptr, 0, nullptr},
};

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
