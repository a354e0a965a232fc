#include "hosts/python/streams/diverted_stream.h"

#include <cstdint>
#include <new>
#include <utility>

#include "hosts/python/errors.h"
#include "hosts/python/keys.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"
#include "hosts/python/running_code.h"

namespace python_host {

namespace {

/// Nothing that the garbage collector counts: a collection runs finalisers, and evaluation is to run nobody's code.
struct DivertedStream {
    PyObject_HEAD boost::shared_ptr<OutputSink> sink;
    PyObject* beneath;       ///< null when there was no stream
    PyObject* heldBack;      ///< a list of what other threads wrote; null when they are passed on at once
    std::uint64_t owner;     ///< the thread that made the stream
    std::uint64_t youngest;  ///< the youngest thread at that time
    bool isOver;
};

DivertedStream* asStream(PyObject* object) noexcept { return reinterpret_cast<DivertedStream*>(object); }

// Threads are told apart by the numbers that the interpreter gives to their states: it gives none twice, and they grow.

std::uint64_t thisThread() noexcept { return PyThreadState_GetID(PyThreadState_Get()); }

std::uint64_t youngestThread() noexcept {
    return PyThreadState_GetID(PyInterpreterState_ThreadHead(PyInterpreterState_Get()));
}

/// The one thread that may still divert streams; none is numbered 0, which means all.
std::uint64_t lastThread = 0;

bool isForOthers(const DivertedStream* stream) noexcept {
    const std::uint64_t thread = thisThread();
    return stream->isOver || (thread != stream->owner && thread <= stream->youngest);
}

bool isDivertedStream(PyObject* object) noexcept;

/// The stream that this thread means by the one that it found, borrowed: of all that lie below one another the first
/// that is for this thread, else the first that holds back what others write, else the lowest; null when there is none.
PyObject* streamMeantBy(PyObject* found) noexcept {
    PyObject* holding = nullptr;
    PyObject* each = found;
    for (; isDivertedStream(each); each = asStream(each)->beneath) {
        if (!isForOthers(asStream(each))) {
            return each;
        }
        holding = holding == nullptr && asStream(each)->heldBack != nullptr ? each : holding;
    }
    each = each == Py_None ? nullptr : each;
    return holding != nullptr ? holding : each;
}

/// A stream of the program's that is meant instead; a new reference, or null. Passing a call on unwinds at the end of
/// the interpreter like any other, so that nothing here may own what it passes on.
PyObject* otherMeantBy(PyObject* found) noexcept {
    PyObject* meant = streamMeantBy(found);
    const bool isOther = meant != nullptr && !isDivertedStream(meant);
    return isOther ? Py_NewRef(meant) : nullptr;
}

PyObject* callMeant(PyObject* meant, PyObject* name, PyObject* argument) {
    PyObject* const arguments[] = {meant, argument};
    PyObject* result = PyObject_VectorcallMethod(name, arguments, argument == nullptr ? 1 : 2, nullptr);
    Py_DECREF(meant);
    return result;
}

void deallocate(PyObject* self) {
    Py_XDECREF(asStream(self)->beneath);
    Py_XDECREF(asStream(self)->heldBack);
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

/// What no stream is meant to take goes nowhere.
bool take(PyObject* self, PyObject* text) noexcept {
    const Ref meant = Ref::share(streamMeantBy(self));
    if (!meant) {
        return true;
    }
    const DivertedStream* stream = asStream(meant.get());
    return isForOthers(stream) ? PyList_Append(stream->heldBack, text) == 0 : hand(meant.get(), text);
}

PyObject* write(PyObject* self, PyObject* text) {
    if (PyObject* meant = otherMeantBy(self)) {
        return callMeant(meant, keys().write, text);
    }
    if (!PyUnicode_Check(text)) {
        return PyErr_Format(PyExc_TypeError, "write() argument must be str, not %.100s", Py_TYPE(text)->tp_name);
    }
    return take(self, text) ? PyLong_FromSsize_t(PyUnicode_GET_LENGTH(text)) : nullptr;
}

PyObject* writeLines(PyObject* self, PyObject* lines) {
    const Ref iterator = Ref::steal(PyObject_GetIter(lines));
    if (!iterator) {
        return nullptr;
    }
    while (const Ref line = Ref::steal(runCode([&] { return PyIter_Next(iterator.get()); }))) {
        const Ref written = Ref::steal(runCode([&] { return write(self, line.get()); }));
        if (!written) {
            return nullptr;
        }
    }
    if (PyErr_Occurred() != nullptr) {
        return nullptr;
    }
    Py_RETURN_NONE;
}

PyObject* flush(PyObject* self, PyObject* /*none*/) {
    if (PyObject* meant = otherMeantBy(self)) {
        return callMeant(meant, keys().flush, nullptr);
    }
    Py_RETURN_NONE;
}

PyObject* answerNone(PyObject* /*self*/, PyObject* /*none*/) { Py_RETURN_NONE; }
PyObject* answerTrue(PyObject* /*self*/, PyObject* /*none*/) { Py_RETURN_TRUE; }
PyObject* answerFalse(PyObject* /*self*/, PyObject* /*none*/) { Py_RETURN_FALSE; }

/// The error by which a stream in memory says that it has no descriptor; code that prints looks out for it.
PyObject* refuse(PyObject* /*self*/, PyObject* /*none*/) {
    PyObject* error = findInModule("io", keys().unsupportedOperation);
    PyErr_SetString(error != nullptr && PyExceptionClass_Check(error) ? error : PyExc_OSError, "fileno");
    return nullptr;
}

PyObject* encoding(PyObject* /*self*/, void* /*closure*/) { return PyUnicode_FromString("utf-8"); }
PyObject* errorHandling(PyObject* /*self*/, void* /*closure*/) { return PyUnicode_FromString("surrogatepass"); }
PyObject* mode(PyObject* /*self*/, void* /*closure*/) { return PyUnicode_FromString("w"); }
PyObject* isClosed(PyObject* /*self*/, void* /*closure*/) { Py_RETURN_FALSE; }
PyObject* newlines(PyObject* /*self*/, void* /*closure*/) { Py_RETURN_NONE; }

/// All that another stream has, to those for whom this is that stream.
PyObject* attribute(PyObject* self, PyObject* name) {
    PyObject* meant = otherMeantBy(self);
    if (meant == nullptr) {
        return PyObject_GenericGetAttr(self, name);
    }
    PyObject* value = PyObject_GetAttr(meant, name);
    Py_DECREF(meant);
    return value;
}

PyMethodDef methods[] = {
    {"write", write, METH_O, nullptr},
    {"writelines", writeLines, METH_O, nullptr},
    {"flush", flush, METH_NOARGS, nullptr},
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
    type.tp_getattro = attribute;
    type.tp_flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION | Py_TPFLAGS_IMMUTABLETYPE;
    type.tp_methods = methods;
    type.tp_getset = attributes;
    return type;
}

PyTypeObject& streamType() noexcept {
    static PyTypeObject type = makeType();
    return type;
}

bool isDivertedStream(PyObject* object) noexcept { return object != nullptr && Py_TYPE(object) == &streamType(); }

}  // namespace

void refuseDivertedStreamsToOthers() noexcept { lastThread = thisThread(); }

Ref makeDivertedStream(const boost::shared_ptr<OutputSink>& sink) {
    if (lastThread != 0 && lastThread != thisThread()) {
        throw PythonFailure("the interpreter is about to end");
    }
    PyTypeObject* type = &streamType();
    if (PyType_Ready(type) != 0) {
        throwPythonError();
    }
    Ref made = Ref::steal(orThrow(PyType_GenericAlloc(type, 0)));
    DivertedStream* stream = asStream(made.get());
    new (&stream->sink) boost::shared_ptr<OutputSink>(sink);
    stream->owner = thisThread();
    stream->youngest = youngestThread();
    return made;
}

Ref streamBeneath(PyObject* stream) noexcept { return Ref::share(asStream(stream)->beneath); }

void setStreamBeneath(PyObject* stream, Ref beneath) noexcept {
    const Ref before = Ref::steal(std::exchange(asStream(stream)->beneath, beneath.release()));
}

Ref stillInUse(Ref stream) noexcept {
    while (isDivertedStream(stream.get()) && asStream(stream.get())->isOver) {
        stream = streamBeneath(stream.get());
    }
    return stream;
}

Ref lowestStream(Ref stream) noexcept {
    while (isDivertedStream(stream.get())) {
        stream = streamBeneath(stream.get());
    }
    return stream;
}

bool isOfThisThread(PyObject* stream) noexcept { return asStream(stream)->owner == thisThread(); }

void holdBackOthers(PyObject* stream) { asStream(stream)->heldBack = orThrow(PyList_New(0)); }

void endDivertedStream(PyObject* stream) noexcept {
    asStream(stream)->isOver = true;
    const boost::shared_ptr<OutputSink> sink = std::exchange(asStream(stream)->sink, {});
}

void moveHeldBack(PyObject* from, PyObject* to) noexcept {
    const Ref texts = Ref::steal(std::exchange(asStream(from)->heldBack, nullptr));
    PyObject* others = asStream(to)->heldBack;
    if (texts && others != nullptr &&
        PyList_SetSlice(others, PyList_GET_SIZE(others), PyList_GET_SIZE(others), texts.get()) != 0) {
        PyErr_Clear();
    }
}

void writeHeldBack(PyObject* stream) noexcept {
    const Ref texts = Ref::steal(std::exchange(asStream(stream)->heldBack, nullptr));
    const Ref lowest = lowestStream(Ref::share(stream));
    if (!lowest || lowest.get() == Py_None) {
        return;
    }
    for (Py_ssize_t index = 0; texts && index < PyList_GET_SIZE(texts.get()); ++index) {
        PyObject* text = PyList_GET_ITEM(texts.get(), index);
        const Ref written =
            Ref::steal(runCode([&] { return PyObject_CallMethodOneArg(lowest.get(), keys().write, text); }));
        if (!written) {
            dropError();
        }
    }
}

}  // namespace python_host
