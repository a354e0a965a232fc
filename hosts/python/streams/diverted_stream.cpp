#include "hosts/python/streams/diverted_stream.h"

#include <new>
#include <utility>

#include "hosts/python/errors.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

struct DivertedStream {
    PyObject_HEAD boost::shared_ptr<OutputSink> sink;
};

DivertedStream* asStream(PyObject* object) noexcept { return reinterpret_cast<DivertedStream*>(object); }

void deallocate(PyObject* self) {
    asStream(self)->sink.~shared_ptr();
    Py_TYPE(self)->tp_free(self);
}

/// False with a Python error set when the sink cannot take the text.
bool hand(PyObject* self, PyObject* text) noexcept {
    try {
        // A copy: what the sink does may end the diversion.
        const boost::shared_ptr<OutputSink> sink = asStream(self)->sink;
        if (sink) {
            sink->write(utf16Of(text));
        }
        return true;
    } catch (...) {
        PyErr_NoMemory();
        return false;
    }
}

PyObject* write(PyObject* self, PyObject* text) {
    if (!PyUnicode_Check(text)) {
        return PyErr_Format(PyExc_TypeError, "write() argument must be str, not %.100s", Py_TYPE(text)->tp_name);
    }
    return hand(self, text) ? PyLong_FromSsize_t(PyUnicode_GET_LENGTH(text)) : nullptr;
}

PyObject* writeLines(PyObject* self, PyObject* lines) {
    const Ref iterator = Ref::steal(PyObject_GetIter(lines));
    if (!iterator) {
        return nullptr;
    }
    while (const Ref line = Ref::steal(PyIter_Next(iterator.get()))) {
        const Ref written = Ref::steal(write(self, line.get()));
        if (!written) {
            return nullptr;
        }
    }
    if (PyErr_Occurred() != nullptr) {
        return nullptr;
    }
    Py_RETURN_NONE;
}

PyObject* answerNone(PyObject* /*self*/, PyObject* /*none*/) { Py_RETURN_NONE; }
PyObject* answerTrue(PyObject* /*self*/, PyObject* /*none*/) { Py_RETURN_TRUE; }
PyObject* answerFalse(PyObject* /*self*/, PyObject* /*none*/) { Py_RETURN_FALSE; }

/// The error by which a stream in memory says that it has no descriptor; code that prints looks out for it.
PyObject* refuse(PyObject* /*self*/, PyObject* /*none*/) {
    static PyObject* const name = PyUnicode_InternFromString("UnsupportedOperation");
    PyObject* error = findInModule("io", name);
    PyErr_SetString(error != nullptr && PyExceptionClass_Check(error) ? error : PyExc_OSError, "fileno");
    return nullptr;
}

PyObject* encoding(PyObject* /*self*/, void* /*closure*/) { return PyUnicode_FromString("utf-8"); }
PyObject* errorHandling(PyObject* /*self*/, void* /*closure*/) { return PyUnicode_FromString("surrogatepass"); }
PyObject* mode(PyObject* /*self*/, void* /*closure*/) { return PyUnicode_FromString("w"); }
PyObject* isClosed(PyObject* /*self*/, void* /*closure*/) { Py_RETURN_FALSE; }
PyObject* newlines(PyObject* /*self*/, void* /*closure*/) { Py_RETURN_NONE; }

PyMethodDef methods[] = {
    {"write", write, METH_O, nullptr},
    {"writelines", writeLines, METH_O, nullptr},
    {"flush", answerNone, METH_NOARGS, nullptr},
    {"close", answerNone, METH_NOARGS, nullptr},
    {"isatty", answerFalse, METH_NOARGS, nullptr},
    {"readable", answerFalse, METH_NOARGS, nullptr},
    {"seekable", answerFalse, METH_NOARGS, nullptr},
    {"writable", answerTrue, METH_NOARGS, nullptr},
    {"fileno", refuse, METH_NOARGS, nullptr},
    {nullptr, nullptr, 0, nullptr},
};

PyGetSetDef attributes[] = {
    {"encoding", encoding, nullptr, nullptr, nullptr}, {"errors", errorHandling, nullptr, nullptr, nullptr},
    {"mode", mode, nullptr, nullptr, nullptr},         {"closed", isClosed, nullptr, nullptr, nullptr},
    {"newlines", newlines, nullptr, nullptr, nullptr}, {nullptr, nullptr, nullptr, nullptr, nullptr},
};

PyTypeObject makeType() {
    PyTypeObject type = {};
    type.ob_base = {PyObject_HEAD_INIT(nullptr) 0};
    type.tp_name = "contextdata.DivertedStream";
    type.tp_basicsize = sizeof(DivertedStream);
    type.tp_dealloc = deallocate;
    type.tp_flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION | Py_TPFLAGS_IMMUTABLETYPE;
    type.tp_methods = methods;
    type.tp_getset = attributes;
    return type;
}

/// Null, with a Python error set, when the type cannot be made.
PyTypeObject* streamType() {
    static PyTypeObject type = makeType();
    return PyType_Ready(&type) == 0 ? &type : nullptr;
}

}  // namespace

Ref makeDivertedStream(const boost::shared_ptr<OutputSink>& sink) {
    PyTypeObject* type = streamType();
    if (type == nullptr) {
        throwPythonError();
    }
    Ref stream = Ref::steal(orThrow(PyType_GenericAlloc(type, 0)));
    new (&asStream(stream.get())->sink) boost::shared_ptr<OutputSink>(sink);
    return stream;
}

void detachDivertedStream(PyObject* stream) noexcept {
    const boost::shared_ptr<OutputSink> sink = std::exchange(asStream(stream)->sink, {});
}

}  // namespace python_host
