// The module under Python 3, within the stable ABI, so that one built file imports in every Python 3:
// the entry PyInit_Cindrel, the path as a str through its UTF-16 form, and the result as a str built
// once from the document's UTF-8.
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "archive/text_conversion.h"
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

// Each piece becomes a str as soon as the interpreter can take it, and its bytes are freed, so
// that the pieces' memory goes to the strs; the strs are joined once into the result.
class Python3Result : public PreparedResult {
public:
    explicit Python3Result(DocumentPieces&& pieces) : pieces(std::move(pieces)) {}

    PyObject* build() override
    {
        std::vector<std::string>& taken = pieces.pieces();
        if (taken.size() <= 1) return decodePiece(taken.empty() ? std::string_view() : upToZero(taken.front()));
        PyObject* list = PyList_New(0);
        if (list == nullptr) return nullptr;
        bool ended = false;
        for (std::string& piece : taken) {
            if (ended) break;
            const std::string_view text = upToZero(piece);
            ended = text.size() < piece.size();
            PyObject* part = decodePiece(text);
            std::string().swap(piece);
            if (part == nullptr || PyList_Append(list, part) < 0) {
                Py_XDECREF(part);
                Py_DECREF(list);
                return nullptr;
            }
            Py_DECREF(part);
        }
        PyObject* empty = PyUnicode_FromStringAndSize("", 0);
        PyObject* whole = empty ? PyUnicode_Join(empty, list) : nullptr;
        Py_XDECREF(empty);
        Py_DECREF(list);
        return whole;
    }

private:
    static std::string_view upToZero(std::string_view text) { return text.substr(0, text.find('\0')); }

    static PyObject* decodePiece(std::string_view text)
    {
        return PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogatepass");
    }

    DocumentPieces pieces;
};

}  // namespace

std::unique_ptr<PreparedResult> prepareResult(DocumentPieces&& pieces)
{
    return std::make_unique<Python3Result>(std::move(pieces));
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
