// Owning handles to Python objects.
#pragma once

#include <Python.h>

#include <utility>

// The host reads the layout of types, dictionaries and a few built-in objects directly; these differ from one minor
// version of the interpreter to the next.
#if PY_VERSION_HEX < 0x030B0000 || PY_VERSION_HEX >= 0x030C0000
#error "this host is written for the layouts of CPython 3.11"
#endif

namespace python_host {

/// Holds one reference. The GIL is held wherever a handle is copied or ends.
class Ref {
public:
    Ref() noexcept = default;
    /// Takes over a reference that the caller owns; null is allowed.
    static Ref steal(PyObject* object) noexcept { return Ref(object); }
    /// Adds a reference to a borrowed object; null is allowed.
    static Ref share(PyObject* object) noexcept {
        Py_XINCREF(object);
        return Ref(object);
    }
    static Ref share(PyTypeObject* type) noexcept { return share(reinterpret_cast<PyObject*>(type)); }

    Ref(const Ref& other) noexcept : object_(other.object_) { Py_XINCREF(object_); }
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() { Py_XDECREF(object_); }

    PyObject* get() const noexcept { return object_; }
    PyObject* release() noexcept { return std::exchange(object_, nullptr); }
    explicit operator bool() const noexcept { return object_ != nullptr; }

private:
    explicit Ref(PyObject* object) noexcept : object_(object) {}

    PyObject* object_ = nullptr;
};

inline PyObject* asObject(PyTypeObject* type) noexcept { return reinterpret_cast<PyObject*>(type); }
inline PyTypeObject* asType(PyObject* object) noexcept { return reinterpret_cast<PyTypeObject*>(object); }

}  // namespace python_host
