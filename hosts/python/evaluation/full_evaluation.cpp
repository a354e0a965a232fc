#include "hosts/python/evaluation/full_evaluation.h"

#include <algorithm>

#include "hosts/python/errors.h"
#include "hosts/python/running_code.h"

namespace python_host {

namespace {

Ref compile(const std::string& text) {
    PyCompilerFlags flags = {PyCF_SOURCE_IS_UTF8 | PyCF_IGNORE_COOKIE, PY_MINOR_VERSION};
    constexpr int sessionsLevel = -1;
    return orNothingUnlessInterrupted(
        Py_CompileStringExFlags(text.c_str(), "<completion>", Py_eval_input, &flags, sessionsLevel));
}

Ref orEmptyDictionary(const Ref& dictionary) {
    return dictionary && PyDict_Check(dictionary.get()) ? dictionary : orNothingUnlessInterrupted(PyDict_New());
}

}  // namespace

Ref evaluateFully(const std::string& text, const Workspace& workspace) {
    if (text.find('\0') != std::string::npos) {
        return {};
    }
    const Ref code = compile(text.substr(std::min(text.find_first_not_of(" \t"), text.size())));
    if (!code) {
        return {};
    }
    // A workspace of one dictionary is its own globals.
    const Ref globals = orEmptyDictionary(workspace.globals ? workspace.globals : workspace.locals);
    const Ref locals = workspace.locals ? workspace.locals : globals;
    return globals ? orNothingUnlessInterrupted(
                         runCode([&] { return PyEval_EvalCode(code.get(), globals.get(), locals.get()); }))
                   : Ref();
}

}  // namespace python_host
