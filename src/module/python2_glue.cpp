// The module under Python 2.7: the entry initCindrel, and the path and the result in the
// interpreter's own wide buffer (the format "u" both ways), whatever the width of its units.
#include <string>

#include "module/code_units.h"
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

PyObject* buildResult(const std::string& text)
{
    const auto wide = fromUtf8Units<Py_UNICODE>(text);
    return Py_BuildValue("u", wide.data());
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
