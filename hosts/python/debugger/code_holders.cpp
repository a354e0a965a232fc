#include "hosts/python/debugger/code_holders.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/references.h"
#include "hosts/python/values/callables.h"

namespace python_host {

namespace {

/// Decorators upon decorators; a wrapper may even be made to wrap itself.
constexpr std::size_t wrapperLimit = 16;

bool isWithin(PyObject* outer, PyObject* code, std::size_t levels) {
    if (outer == code) {
        return true;
    }
    PyObject* constants = reinterpret_cast<PyCodeObject*>(outer)->co_consts;
    for (Py_ssize_t index = 0; levels > 0 && index < PyTuple_GET_SIZE(constants); ++index) {
        PyObject* constant = PyTuple_GET_ITEM(constants, index);
        if (PyCode_Check(constant) && isWithin(constant, code, levels - 1)) {
            return true;
        }
    }
    return false;
}

/// Looking into an object's own dictionary may create it, and with that start a garbage collection: what is found is
/// held on to.
Ref ownItem(PyObject* object, PyObject* name) { return Ref::share(findItem(instanceDictionary(object), name)); }

/// The functions that an entry of a class stands for: its accessors, or what it is put around.
std::vector<Ref> functionsBehind(PyObject* entry) {
    std::vector<Ref> functions;
    const auto add = [&functions](Ref function) {
        if (function) {
            functions.push_back(std::move(function));
        }
    };
    PyTypeObject* type = Py_TYPE(entry);
    if (derivesFrom(type, &PyProperty_Type)) {
        for (const std::string_view accessor : {"fget", "fset", "fdel"}) {
            add(Ref::share(objectMember(&PyProperty_Type, entry, accessor)));
        }
    } else if (derivesFrom(type, &PyStaticMethod_Type)) {
        add(Ref::share(objectMember(&PyStaticMethod_Type, entry, "__func__")));
    } else if (derivesFrom(type, &PyClassMethod_Type)) {
        add(Ref::share(objectMember(&PyClassMethod_Type, entry, "__func__")));
    } else if (isCachedProperty(entry)) {
        add(ownItem(entry, keys().func));
    }
    return functions;
}

/// What a function says that it wraps; a class or an object that merely carries the name is no wrapper.
Ref wrappedBy(PyObject* entry) {
    const bool isWrapper = PyFunction_Check(entry) || isNamedType(Py_TYPE(entry), "functools._lru_cache_wrapper");
    return isWrapper ? ownItem(entry, keys().wrapped) : Ref();
}

bool leadsTo(PyObject* entry, const CodeSearch& search, std::size_t depth) {
    if (depth > wrapperLimit) {
        return false;
    }
    if (PyFunction_Check(entry) && isWithin(PyFunction_GET_CODE(entry), search.code, search.nesting)) {
        return true;
    }
    std::vector<Ref> functions = functionsBehind(entry);
    if (search.throughWrappers) {
        if (Ref wrapped = wrappedBy(entry)) {
            functions.push_back(std::move(wrapped));
        }
    }
    return std::any_of(functions.begin(), functions.end(),
                       [&](const Ref& function) { return leadsTo(function.get(), search, depth + 1); });
}

/// What may be or hold a function; the dictionary is walked first, since it must not change meanwhile.
std::vector<Ref> entriesOf(PyTypeObject* type) {
    std::vector<Ref> entries;
    eachTextItem(type->tp_dict,
                 [&entries](PyObject* /*key*/, PyObject* value) { entries.push_back(Ref::share(value)); });
    return entries;
}

}  // namespace

bool holdsCode(PyTypeObject* type, const CodeSearch& search) {
    const std::vector<Ref> entries = entriesOf(type);
    return std::any_of(entries.begin(), entries.end(),
                       [&](const Ref& entry) { return leadsTo(entry.get(), search, 0); });
}

}  // namespace python_host
