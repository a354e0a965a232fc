#include "hosts/python/signatures/partial_signature.h"

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

PyTypeObject* partialType() {
    PyObject* type = findInModule(keys().functools, keys().partial);
    return type != nullptr && PyType_Check(type) ? asType(type) : nullptr;
}

bool isFilled(const Parameter& parameter, PyObject* keywords) {
    const Ref name = Ref::steal(makeText(parameter.name));
    return name && findItem(keywords, name.get()) != nullptr;
}

}  // namespace

std::optional<PartialCall> partialCallOf(PyObject* object) {
    PyTypeObject* type = partialType();
    if (type == nullptr || !derivesFrom(Py_TYPE(object), type)) {
        return std::nullopt;
    }
    PyObject* function = objectMember(type, object, "func");
    PyObject* arguments = objectMember(type, object, "args");
    if (function == nullptr || arguments == nullptr || !PyTuple_CheckExact(arguments)) {
        return std::nullopt;
    }
    return PartialCall{Ref::share(function), static_cast<std::size_t>(PyTuple_GET_SIZE(arguments)),
                       Ref::share(objectMember(type, object, "keywords"))};
}

Signature applyTo(Signature signature, const PartialCall& call) {
    std::size_t toFill = call.positionals;
    bool needsName = false;
    Signature left;
    for (Parameter& parameter : signature) {
        if (parameter.kind != ParameterKind::keywordOnly && toFill != 0) {
            --toFill;
            continue;
        }
        if (parameter.kind == ParameterKind::positionalOrKeyword) {
            needsName = needsName || isFilled(parameter, call.keywords.get());
            parameter.kind = needsName ? ParameterKind::keywordOnly : parameter.kind;
        }
        left.push_back(std::move(parameter));
    }
    return left;
}

}  // namespace python_host
