#include "frontends/python/src/describe.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "contextdata/values.h"
#include "frontends/completion/describe_class.h"
#include "frontends/completion/parse.h"
#include "frontends/completion/subject.h"
#include "frontends/python/src/arguments.h"
#include "frontends/python/src/class_location.h"
#include "frontends/python/src/description_objects.h"
#include "frontends/python/src/errors.h"
#include "frontends/python/src/new_objects.h"
#include "frontends/python/src/own_attributes.h"
#include "frontends/python/src/python_text.h"
#include "frontends/python/src/variables.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::ClassDescription;
using completion::ParsedText;
using completion::Refusal;
using ZELKContextData::ResolvedClassID;

namespace {

using Chain = std::span<const std::u16string_view>;

/// What is to be described: a class, and perhaps an object of it.
struct Described {
    ResolvedClassID cls;
    pybind11::object type;  ///< the class itself; empty when it is known by name only
    qxSharedArray object;   ///< empty for a class
};

template <class... Arguments>
[[noreturn]] void throwValueError(const char* format, Arguments... arguments) {
    PyErr_Format(PyExc_ValueError, format, arguments...);
    throwRaised();
}

Described classItself(PyTypeObject* type) {
    return {ResolvedClassID::fromKnownResolvedClassID(python_host::classIdOf(type)),
            pybind11::reinterpret_borrow<pybind11::object>(reinterpret_cast<PyObject*>(type)),
            {}};
}

[[noreturn]] void refuseModule(const pybind11::object& name) {
    throwValueError("%U is a module, which has no class worth a description; list its members instead", name.ptr());
}

/// The name that a module goes by, for people.
pybind11::object shownName(PyObject* module) {
    PyObject* name = findName(PyModule_GetDict(module), u"__name__");
    const bool isText = name != nullptr && PyUnicode_CheckExact(name);
    return isText ? pybind11::reinterpret_borrow<pybind11::object>(name) : strOfAscii("this");
}

Described objectItself(qxSharedArray value) {
    PyObject* object = python_host::unwrap(value.get());
    if (PyType_Check(object)) {
        return classItself(reinterpret_cast<PyTypeObject*>(object));
    }
    if (PyModule_Check(object)) {
        refuseModule(shownName(object));
    }
    Described described = classItself(Py_TYPE(object));
    described.object = std::move(value);
    return described;
}

Described classNamed(Chain chain, const pybind11::object& text) {
    const completion::Subject subject = completion::named(chain, {});
    if (subject.nature == completion::Subject::Nature::space) {
        refuseModule(strOf(subject.space));
    }
    if (subject.nature != completion::Subject::Nature::classItself) {
        throwValueError("%R leads to no class or object; import its module, define it before, or correct the name",
                        text.ptr());
    }
    PyTypeObject* type = typeNamed(subject.cls);
    return type == nullptr ? Described{subject.cls, {}, {}} : classItself(type);
}

Described objectAtTheEnd(qxSharedArray value, Chain chain) {
    for (const std::u16string_view& name : chain.subspan(1)) {
        value = completion::follow(std::move(value), {&name, 1});
        if (!value) {
            throwValueError(
                "there is no plain attribute '%U' that can be read without running code; correct the name, or evaluate "
                "it into a variable first",
                strOf(name).ptr());
        }
    }
    if (python_host::unwrap(value.get()) == nullptr) {
        throwValueError("'%U' has no class to describe", strOf(chain.back()).ptr());
    }
    return objectItself(std::move(value));
}

Described atTheEndOf(PyObject* subject, const Scope& scope) {
    std::u16string units = utf16Of(subject, PyUnicode_GET_LENGTH(subject));
    // Anew: a subclass of str would be asked for its own idea of itself.
    const pybind11::object text = strOf(units);
    units += u'.';
    const ParsedText parsed = completion::parse(units, units.size());
    if (parsed.refusal != Refusal::none) {
        throwValueError("%R is no name of a class or object; write one such as 'decimal.Decimal'", text.ptr());
    }
    const python_host::CurrentWorkspace workspace = workspaceOf(scope);
    qxSharedArray root = Variables(workspace).find(std::u16string(parsed.chain.front()));
    return root ? objectAtTheEnd(std::move(root), parsed.chain) : classNamed(parsed.chain, text);
}

Described resolved(const pybind11::object& subject, const pybind11::object& variables) {
    if (PyUnicode_Check(subject.ptr())) {
        return atTheEndOf(subject.ptr(), readScope(variables.ptr()));
    }
    return objectItself(makeSharedPtr(python_host::wrap(subject.ptr()).release()));
}

}  // namespace

pybind11::tuple describe(const pybind11::object& subject, const pybind11::object& variables, bool includeHidden) {
    const Described described = resolved(subject, variables);
    completion::DescribeOptions options;
    options.includeHidden = includeHidden;
    // The object first: asking it may run its author's code, and what that does to the class is then seen.
    std::vector<OwnAttribute> own;
    if (described.object) {
        own = ownAttributes(described.object, described.cls);
    }
    const ClassDescription description = describeClass(described.cls, options);
    const ClassLocation location = described.type ? locationOf(reinterpret_cast<PyTypeObject*>(described.type.ptr()))
                                                  : ClassLocation{pybind11::none(), pybind11::none()};
    return tupleWith(location.module, location.file, objectsOf(description),
                     attributeObjects(std::move(own), description));
}

}  // namespace contextdata::python
