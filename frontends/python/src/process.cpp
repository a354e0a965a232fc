#include "frontends/python/src/process.h"

#include "hosts/python/python_host.h"

namespace contextdata::python {

bool requireMainInterpreter() noexcept {
    if (PyInterpreterState_Get() == PyInterpreterState_Main()) {
        return true;
    }
    PyErr_SetString(PyExc_ImportError,
                    "contextdata works in the main interpreter only; import it there, or use a process of its own "
                    "instead of a subinterpreter");
    return false;
}

void followProcess() {
    using pybind11::arg;
    pybind11::module_::import("os").attr("register_at_fork")(
        arg("after_in_child") = pybind11::cpp_function([] { python_host::endDiversionsOfOtherThreads(); }));
    pybind11::module_::import("atexit").attr("register")(
        pybind11::cpp_function([] { python_host::refuseDiversionsOfOtherThreads(); }));
}

}  // namespace contextdata::python
