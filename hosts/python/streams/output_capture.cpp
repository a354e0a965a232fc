#include "hosts/python/streams/output_capture.h"

#include "hosts/python/errors.h"
#include "hosts/python/namespaces/live_modules.h"

namespace python_host {

namespace {

/// The text in memory is always there, in the compiled module; an import would go through a hook of the user's.
Ref makeSink() {
    static PyObject* const name = PyUnicode_InternFromString("StringIO");
    const Ref type = Ref::share(findInModule("_io", name));
    if (!type || !PyType_Check(type.get())) {
        throw PythonFailure("there is no stream in memory");
    }
    return Ref::steal(orThrow(PyObject_CallNoArgs(type.get())));
}

/// Null removes the name, as it was when there was none before.
void setStream(const char* name, PyObject* stream) noexcept {
    if (PySys_SetObject(name, stream) != 0) {
        PyErr_Clear();
    }
}

}  // namespace

OutputCapture::OutputCapture()
    : output_(Ref::share(PySys_GetObject("stdout"))), errors_(Ref::share(PySys_GetObject("stderr"))) {
    const Ref sink = makeSink();
    setStream("stdout", sink.get());
    setStream("stderr", sink.get());
}

OutputCapture::~OutputCapture() {
    const PendingErrorGuard pending;
    setStream("stdout", output_.get());
    setStream("stderr", errors_.get());
}

}  // namespace python_host
