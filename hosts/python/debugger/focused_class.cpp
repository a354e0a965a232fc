// The class whose method is stopped in the debugger.
#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/debugger/code_holders.h"
#include "hosts/python/debugger/debugger.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/folders/live_paths.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"

namespace python_host {

namespace {

/// Stands in a qualified name between a function and what is defined within it.
constexpr std::string_view innerMark = ".<locals>.";

PyCodeObject* asCode(const Ref& code) { return reinterpret_cast<PyCodeObject*>(code.get()); }

/// The bodies of modules and classes are code, too, but no function's.
bool isFunctionCode(const PyCodeObject* code) {
    constexpr int marks = CO_OPTIMIZED | CO_NEWLOCALS;
    return (code->co_flags & marks) == marks;
}

/// What the function was called with first, as far as the variable still holds it.
Ref firstArgument(const PyCodeObject* code) {
    const bool isNamed = code->co_argcount > 0;
    if (!isNamed && (code->co_flags & CO_VARARGS) == 0) {
        return {};
    }
    const int index = isNamed ? 0 : code->co_kwonlyargcount;
    const Ref variables = focusedVariables();
    PyObject* value = findItem(variables.get(), PyTuple_GET_ITEM(code->co_localsplusnames, index));
    if (isNamed || value == nullptr) {
        return Ref::share(value);
    }
    const bool isFilled = PyTuple_CheckExact(value) && PyTuple_GET_SIZE(value) > 0;
    return Ref::share(isFilled ? PyTuple_GET_ITEM(value, 0) : nullptr);
}

Ref holderInOrder(PyTypeObject* type, const CodeSearch& search) {
    const Ref order = resolutionOrder(type);
    for (Py_ssize_t index = 0; order && index < PyTuple_GET_SIZE(order.get()); ++index) {
        PyTypeObject* candidate = asType(PyTuple_GET_ITEM(order.get(), index));
        if (holdsCode(candidate, search)) {
            return Ref::share(candidate);
        }
    }
    return {};
}

/// Methods of a class are called with the class, those of its metaclass likewise.
Ref holderByArgument(PyObject* argument, const CodeSearch& search) {
    if (PyType_Check(argument)) {
        if (Ref holder = holderInOrder(asType(argument), search)) {
            return holder;
        }
    }
    return holderInOrder(Py_TYPE(argument), search);
}

struct QualifiedMethod {
    std::string className;
    std::size_t nesting = 0;
};

/// How many functions deep code stands by the part of its name that follows the method's. Nothing when a class stands
/// in between, whose method the code is then.
std::optional<std::size_t> nestingOf(std::string_view inner) {
    std::size_t levels = 0;
    while (!inner.empty()) {
        if (!inner.starts_with(innerMark)) {
            return std::nullopt;
        }
        inner.remove_prefix(innerMark.size());
        const std::size_t end = std::min(inner.find(innerMark), inner.size());
        if (inner.substr(0, end).find('.') != std::string_view::npos) {
            return std::nullopt;
        }
        inner.remove_prefix(end);
        ++levels;
    }
    return levels;
}

std::optional<QualifiedMethod> methodNamedBy(const PyCodeObject* code) {
    const std::string name = lossyUtf8Of(code->co_qualname);
    const std::string_view method = std::string_view(name).substr(0, name.find(innerMark));
    const std::size_t dot = method.rfind('.');
    const auto nesting = nestingOf(std::string_view(name).substr(method.size()));
    if (dot == std::string_view::npos || !nesting) {
        return std::nullopt;
    }
    return QualifiedMethod{std::string(method.substr(0, dot)), *nesting};
}

/// Classes are found by name in the globals and then in the dictionaries of classes alone.
Ref classAt(PyObject* globals, std::string_view path) {
    PyObject* container = globals;
    PyObject* found = nullptr;
    while (!path.empty()) {
        const SplitName split = splitFirst(path);
        const Ref key = Ref::steal(makeText(split.first));
        found = key ? findItem(container, key.get()) : nullptr;
        if (found == nullptr || !PyType_Check(found)) {
            return {};
        }
        container = asType(found)->tp_dict;
        path = split.rest;
    }
    return Ref::share(found);
}

Ref holderByName(PyObject* globals, const PyCodeObject* code, CodeSearch search) {
    const auto method = methodNamedBy(code);
    const Ref cls = method ? classAt(globals, method->className) : Ref();
    if (!cls) {
        return {};
    }
    search.nesting = method->nesting;
    return holdsCode(asType(cls.get()), search) ? cls : Ref();
}

/// A class that wraps another one's method holds its code as well, so wrappers are looked into last.
Ref findHolder(PyObject* argument, PyObject* globals, const Ref& code) {
    for (const bool throughWrappers : {false, true}) {
        const CodeSearch search{code.get(), throughWrappers, 0};
        if (Ref holder = argument == nullptr ? Ref() : holderByArgument(argument, search)) {
            return holder;
        }
        if (Ref holder = holderByName(globals, asCode(code), search)) {
            return holder;
        }
    }
    return {};
}

}  // namespace

zelk::COSInternedID classInFocus() {
    const PendingErrorGuard pending;
    const Ref frame = focusedFrame();
    if (!frame) {
        return {};
    }
    auto* object = reinterpret_cast<PyFrameObject*>(frame.get());
    const Ref code = Ref::steal(reinterpret_cast<PyObject*>(PyFrame_GetCode(object)));
    if (!isFunctionCode(asCode(code))) {
        return {};
    }
    const Ref globals = Ref::steal(PyFrame_GetGlobals(object));
    const Ref argument = firstArgument(asCode(code));
    const Ref holder = findHolder(argument.get(), globals.get(), code);
    return holder ? ClassRegistry::instance().objectOf(asType(holder.get())).getID() : zelk::COSInternedID();
}

}  // namespace python_host
