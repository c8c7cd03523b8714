// The module under Python 3, within the stable ABI, so that one built file imports in every Python 3:
// the entry PyInit_Cindrel, and the path and the result as a str, through its UTF-16 form.
#include <string>

#include "module/python_module.h"

namespace TalvexCore {

bool parsePathArgument(PyObject* args, std::u16string& path)
{
    PyObject* text = nullptr;
    if (!PyArg_ParseTuple(args, "U", &text)) return false;
    PyObject* bytes = PyUnicode_AsEncodedString(text, "utf-16-le", "surrogatepass");
    if (bytes == nullptr) return false;
    const char* data = PyBytes_AsString(bytes);
    const Py_ssize_t size = PyBytes_Size(bytes);
    if (data != nullptr && size > 0) path.assign(reinterpret_cast<const char16_t*>(data), static_cast<std::size_t>(size) / 2);
    Py_DECREF(bytes);
    // The path ends at its first zero character, for the extension test as for the file.
    if (const auto zero = path.find(u'\0'); zero != std::u16string::npos) path.resize(zero);
    return true;
}

PyObject* buildResult(const std::u16string& text)
{
    const auto zero = text.find(u'\0');
    const std::size_t length = zero == std::u16string::npos ? text.size() : zero;
    int byteOrder = -1;  // little endian
    return PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(text.data()),
                                 static_cast<Py_ssize_t>(length * 2), "surrogatepass", &byteOrder);
}

}  // namespace TalvexCore

namespace {

void freeModule(void* /*module*/)
{
    TalvexCore::releaseModuleError();
}

PyModuleDef moduleDef = {
    PyModuleDef_HEAD_INIT, "Cindrel", nullptr, -1, TalvexCore::moduleMethods, nullptr, nullptr, nullptr, freeModule,
};

}  // namespace

PyMODINIT_FUNC PyInit_Cindrel()
{
    PyObject* module = PyModule_Create(&moduleDef);
    if (module == nullptr) return nullptr;
    if (!TalvexCore::addModuleError(module)) {
        Py_DECREF(module);
        return nullptr;
    }
    return module;
}
