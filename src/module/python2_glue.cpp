// The module under Python 2.7: the entry initCindrel, the path in the interpreter's own wide buffer
// (the format "u"), and the result written into a new unicode object's units, whatever their width.
#include <memory>
#include <string>

#include "module/code_units.h"
#include "module/document_pieces.h"
#include "module/python_module.h"

namespace TalvexCore {

// The parser refuses a narrow str itself.
bool parsePathArgument(PyObject* args, PyObject* keywords, const char* command, std::u16string& path)
{
    static char pathName[] = "path";  // Python 2 takes the names as mutable texts
    static char* names[] = {pathName, nullptr};
    const std::string format = std::string("u:") + command;
    Py_UNICODE* text = nullptr;
    if (!PyArg_ParseTupleAndKeywords(args, keywords, format.c_str(), names, &text)) return false;
    path = toUtf16Units(text);
    return true;
}

namespace {

// Under 2.7 the result takes four bytes a character (two in a narrow build): with the lock held
// there is only the new object's allocation; its units are counted before and written after, with
// the lock released, so that the host's other threads go on while the memory is first touched.
class Python2Result : public ResultBuilder {
public:
    void take(std::string& t, bool last, PyThreadState*& /*released*/) override
    {
        pieces.take(t, last);
        if (!last) return;
        text = pieces.join();
        forEachUtf8Unit<Py_UNICODE>(text, [this](Py_UNICODE) { ++length; });
    }

    PyObject* finish() override
    {
        PyObject* result = PyUnicode_FromUnicode(nullptr, static_cast<Py_ssize_t>(length));
        if (result == nullptr) return nullptr;
        Py_UNICODE* out = PyUnicode_AS_UNICODE(result);
        Py_BEGIN_ALLOW_THREADS
        forEachUtf8Unit<Py_UNICODE>(text, [&out](Py_UNICODE unit) { *out++ = unit; });
        Py_END_ALLOW_THREADS
        return result;
    }

private:
    DocumentPieces pieces;
    std::string text;
    std::size_t length = 0;
};

}  // namespace

std::unique_ptr<ResultBuilder> makeResultBuilder()
{
    return std::make_unique<Python2Result>();
}

}  // namespace TalvexCore

PyMODINIT_FUNC initCindrel()
{
    PyObject* module = Py_InitModule4("Cindrel", TalvexCore::moduleMethods, TalvexCore::moduleDoc,
                                       nullptr, PYTHON_API_VERSION);
    if (module == nullptr) return;
    // The exception lives as long as the process: by the time exit handlers run the interpreter has
    // finalised its objects, and a reference dropped then would touch freed state.
    if (TalvexCore::addModuleError(module)) TalvexCore::addModuleVersion(module);
}
