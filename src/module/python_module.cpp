// The Python module Cindrel: getTalmatXml, getTaloptXml and the exception Cindrel.error.
#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <exception>
#include <new>
#include <string>

#include "archive/text_conversion.h"
#include "module/file_routing.h"
#include "module/material_conversion.h"
#include "module/options_conversion.h"

using namespace TalvexCore;

namespace {

PyObject* moduleError = nullptr;

// The file name that a str stands for: the interpreter gives a name that is not valid in the file
// system's encoding with its stray bytes escaped as lone surrogates, and encoding it back with that
// escape gives the bytes again. Null, with no exception kept, for a str that is no file name.
PyObject* fileNameBytes(PyObject* text)
{
    PyObject* bytes = PyUnicode_EncodeFSDefault(text);
    if (bytes == nullptr) PyErr_Clear();
    return bytes;
}

// The argument is a str; its text, up to its first zero character, becomes a wide string of
// 16-bit code units that names the file by its bytes (see fileNameToWide).
bool parsePathArgument(PyObject* args, std::u16string& path)
{
    PyObject* text = nullptr;
    if (!PyArg_ParseTuple(args, "U", &text)) return false;
    if (PyObject* name = fileNameBytes(text)) {
        path = fileNameToWide(std::string_view(PyBytes_AS_STRING(name), static_cast<std::size_t>(PyBytes_GET_SIZE(name))));
        Py_DECREF(name);
        return true;
    }
    PyObject* bytes = PyUnicode_AsEncodedString(text, "utf-16-le", "surrogatepass");
    if (bytes == nullptr) return false;
    const char* data = PyBytes_AS_STRING(bytes);
    const Py_ssize_t size = PyBytes_GET_SIZE(bytes);
    path.assign(reinterpret_cast<const char16_t*>(data), static_cast<std::size_t>(size) / 2);
    Py_DECREF(bytes);
    // The path ends at its first zero character, for the extension test as for the file.
    if (const auto zero = path.find(u'\0'); zero != std::u16string::npos) path.resize(zero);
    return true;
}

// The result is the text up to its first zero character, as a str.
PyObject* buildResult(const std::u16string& text)
{
    const auto zero = text.find(u'\0');
    const std::size_t length = zero == std::u16string::npos ? text.size() : zero;
    int byteOrder = -1;  // little endian
    return PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(text.data()),
                                 static_cast<Py_ssize_t>(length * 2), "surrogatepass", &byteOrder);
}

// Runs a conversion; no C++ exception passes into the interpreter.
template <class Convert>
PyObject* convert(PyObject* args, bool (*matches)(const std::u16string&), Convert conversion)
{
    std::u16string path;
    if (!parsePathArgument(args, path)) return nullptr;
    // A path of the wrong kind answers null with no exception set, as the command always has.
    if (!matches(path)) return nullptr;
    try {
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
    return convert(args, isMaterialFilePath, materialFileToXml);
}

PyObject* getTaloptXml(PyObject* /*self*/, PyObject* args)
{
    return convert(args, isOptionsFilePath, optionsFileToXml);
}

PyMethodDef methods[] = {
    {"getTalmatXml", getTalmatXml, METH_VARARGS, "Gets the xml from a talmat file."},
    {"getTaloptXml", getTaloptXml, METH_VARARGS, "Gets the xml from a talopt file."},
    {nullptr, nullptr, 0, nullptr},
};

void freeModule(void* /*module*/)
{
    Py_CLEAR(moduleError);
}

PyModuleDef moduleDef = {
    PyModuleDef_HEAD_INIT, "Cindrel", nullptr, -1, methods, nullptr, nullptr, nullptr, freeModule,
};

}  // namespace

PyMODINIT_FUNC PyInit_Cindrel()
{
    PyObject* module = PyModule_Create(&moduleDef);
    if (module == nullptr) return nullptr;
    PyObject* error = PyErr_NewException("Cindrel.error", nullptr, nullptr);
    if (error == nullptr) {
        Py_DECREF(module);
        return nullptr;
    }
    Py_XDECREF(moduleError);
    moduleError = error;
    Py_INCREF(error);  // one reference for the module's attribute, one kept here
    if (PyModule_AddObject(module, "error", error) < 0) {
        Py_DECREF(error);
        Py_DECREF(module);
        return nullptr;
    }
    return module;
}
