// The module under Python 3, within the stable ABI, so that one built file imports in every Python 3:
// the entry PyInit_Cindrel, the path as a str through its UTF-16 form, and the result as a str built
// once from the document's UTF-8.
#include <memory>
#include <string>
#include <string_view>

#include "archive/text_conversion.h"
#include "module/document_pieces.h"
#include "module/populated_text.h"
#include "module/python_module.h"

namespace TalvexCore {

// A str, or a path-like object whose path is a str.
bool parsePathArgument(PyObject* args, PyObject* keywords, const char* command, std::u16string& path)
{
    static const char* names[] = {"path", nullptr};
    const std::string format = std::string("O:") + command;
    PyObject* given = nullptr;
    if (!PyArg_ParseTupleAndKeywords(args, keywords, format.c_str(), const_cast<char**>(names), &given))
        return false;
    PyObject* text = PyOS_FSPath(given);  // a str as it is; refuses what is neither path nor text
    if (text == nullptr) return false;
    if (!PyUnicode_Check(text)) {
        Py_DECREF(text);
        PyErr_Format(PyExc_TypeError, "%s() argument 'path' must be str or a path-like object of str, not bytes",
                     command);
        return false;
    }
    // The interpreter gives a name that is not valid in the file system's encoding with its stray bytes
    // escaped as lone surrogates; encoding it back with that escape gives the bytes again, and the
    // path names the file by those bytes (see fileNameToWide).
    if (PyObject* name = PyUnicode_EncodeFSDefault(text)) {
        Py_DECREF(text);
        const char* data = PyBytes_AsString(name);
        const Py_ssize_t size = PyBytes_Size(name);
        if (data != nullptr && size > 0) path = fileNameToWide(std::string_view(data, static_cast<std::size_t>(size)));
        Py_DECREF(name);
    } else {
        PyErr_Clear();
        PyObject* bytes = PyUnicode_AsEncodedString(text, "utf-16-le", "surrogatepass");
        Py_DECREF(text);
        if (bytes == nullptr) return false;
        const char* data = PyBytes_AsString(bytes);
        const Py_ssize_t size = PyBytes_Size(bytes);
        if (data != nullptr && size > 0)
            path.assign(reinterpret_cast<const char16_t*>(data), static_cast<std::size_t>(size) / 2);
        Py_DECREF(bytes);
    }
    // The path ends at its first zero character, for the extension test as for the file.
    if (const auto zero = path.find(u'\0'); zero != std::u16string::npos) path.resize(zero);
    return true;
}

namespace {

// The document's UTF-8 is gathered whole in memory mapped ahead in bulk, the writer going on in the
// same string; the str is then made of it in one step. Memory first touched page by page is costly,
// and so the document is touched that way only once, as the result itself.
class Python3Result : public ResultBuilder {
public:
    void take(std::string& text, bool last, PyThreadState*& /*released*/) override
    {
        if (text.empty() || (!last && text.size() < DocumentPieces::pieceSize)) return;
        utf8.take(text);
    }

    PyObject* finish() override
    {
        std::string_view text = utf8.view();
        text = text.substr(0, text.find('\0'));
        return PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogatepass");
    }

private:
    PopulatedText utf8;
};

}  // namespace

std::unique_ptr<ResultBuilder> makeResultBuilder()
{
    return std::make_unique<Python3Result>();
}

}  // namespace TalvexCore

namespace {

void freeModule(void* /*module*/)
{
    TalvexCore::releaseModuleError();
}

PyModuleDef moduleDef = {
    PyModuleDef_HEAD_INIT, "Cindrel", TalvexCore::moduleDoc, -1, TalvexCore::moduleMethods, nullptr, nullptr, nullptr, freeModule,
};

}  // namespace

PyMODINIT_FUNC PyInit_Cindrel()
{
    PyObject* module = PyModule_Create(&moduleDef);
    if (module == nullptr) return nullptr;
    if (!TalvexCore::addModuleError(module) || !TalvexCore::addModuleVersion(module)) {
        Py_DECREF(module);
        return nullptr;
    }
    return module;
}
