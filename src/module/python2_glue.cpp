// The module under Python 2.7: the entry initCindrel, and the path and the result in the
// interpreter's own wide buffer (the format "u" both ways), whatever the width of its units.
#include <string>

#include "module/code_units.h"
#include "module/python_module.h"

namespace TalvexCore {

// The parser refuses a narrow str itself.
bool parsePathArgument(PyObject* args, std::u16string& path)
{
    Py_UNICODE* text = nullptr;
    if (!PyArg_ParseTuple(args, "u", &text)) return false;
    path = toUtf16Units(text);
    return true;
}

PyObject* buildResult(const std::u16string& text)
{
    const auto wide = fromUtf16Units<Py_UNICODE>(text);
    return Py_BuildValue("u", wide.data());
}

}  // namespace TalvexCore

PyMODINIT_FUNC initCindrel()
{
    PyObject* module = Py_InitModule4("Cindrel", TalvexCore::moduleMethods, nullptr, nullptr, PYTHON_API_VERSION);
    if (module == nullptr) return;
    // The exception lives as long as the process: by the time exit handlers run the interpreter has
    // finalised its objects, and a reference dropped then would touch freed state.
    TalvexCore::addModuleError(module);
}
