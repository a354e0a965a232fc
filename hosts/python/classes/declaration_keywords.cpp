#include "hosts/python/classes/declaration_keywords.h"

#include <algorithm>

#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/members/compiled_members.h"
#include "hosts/python/members/dataclass_fields.h"
#include "hosts/python/members/traits.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

using Keywords = std::vector<std::string>;

/// The code of a function, or of the function within a class method; null for anything else.
PyCodeObject* codeOfHook(PyObject* hook) {
    PyObject* function = hook;
    if (hook != nullptr && derivesFrom(Py_TYPE(hook), &PyClassMethod_Type)) {
        function = objectMember(&PyClassMethod_Type, hook, "__func__");
    }
    const bool isFunction = function != nullptr && PyFunction_Check(function);
    return isFunction ? reinterpret_cast<PyCodeObject*>(PyFunction_GET_CODE(function)) : nullptr;
}

/// The parameters that may be given by name, without the first one, which is the class that is being made.
void appendNamedParameters(PyCodeObject* code, Keywords& names) {
    PyObject* locals = code->co_localsplusnames;
    const int end = code->co_argcount + code->co_kwonlyargcount;
    const int firstNamed = code->co_argcount == 0 ? 0 : std::max(1, code->co_posonlyargcount);
    for (int index = firstNamed; index < end; ++index) {
        names.push_back(lossyUtf8Of(PyTuple_GET_ITEM(locals, index)));
    }
}

bool isAbstractable(PyTypeObject* type) {
    PyObject* metaclass = findInModule("abc", keys().abstractMeta);
    return metaclass != nullptr && PyType_Check(metaclass) && derivesFrom(Py_TYPE(type), asType(metaclass));
}

}  // namespace

std::vector<std::string> classKeywords(PyTypeObject* type) {
    Keywords names{"metaclass"};
    if (PyCodeObject* code = codeOfHook(findItem(type->tp_dict, keys().initSubclass))) {
        appendNamedParameters(code, names);
    }
    return names;
}

std::vector<std::string> propertyKeywords(PyTypeObject* type) {
    Keywords names{"property", "cached_property"};
    if (isDataclass(type)) {
        names.insert(names.end(),
                     {"default", "default_factory", "init", "repr", "hash", "compare", "metadata", "kw_only"});
    }
    return names;
}

std::vector<std::string> methodKeywords(PyTypeObject* type) {
    Keywords names{"staticmethod", "classmethod"};
    if (isAbstractable(type)) {
        names.emplace_back("abstractmethod");
    }
    return names;
}

std::vector<std::string> eventKeywords(PyTypeObject* type) {
    return hasTraits(type) ? Keywords{"observe", "default", "validate"} : Keywords();
}

}  // namespace python_host
