#include "hosts/python/objects/known_getters.h"

#include <structmember.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/objects/labels.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/callables.h"
#include "hosts/python/values/numpy_values.h"

namespace python_host {

namespace {

using Names = std::initializer_list<std::string_view>;

bool contains(Names names, std::string_view name) { return std::find(names.begin(), names.end(), name) != names.end(); }

/// The value of a getter in C that is on the list.
Ref callGetter(PyObject* object, PyObject* descriptor) {
    return orNothing(Py_TYPE(descriptor)->tp_descr_get(descriptor, object, asObject(Py_TYPE(object))));
}

bool isKnownNumberGetter(const PyTypeObject* type, std::string_view name) {
    return (type == &PyLong_Type || type == &PyBool_Type || type == &PyFloat_Type || type == &PyComplex_Type) &&
           contains({"real", "imag", "numerator", "denominator"}, name);
}

bool isKnownDateGetter(const PyTypeObject* type, std::string_view name) {
    const bool isDate = isNamedType(type, "datetime.date") || isNamedType(type, "datetime.datetime") ||
                        isNamedType(type, "datetime.time");
    return isDate &&
           contains({"year", "month", "day", "hour", "minute", "second", "microsecond", "tzinfo", "fold"}, name);
}

bool isKnownArrayGetter(PyTypeObject* type, std::string_view name) {
    return isNumpyOwnType(type) &&
           contains({"T",      "real",     "imag",   "flat",    "dtype",     "shape", "size",
                     "ndim",   "itemsize", "nbytes", "strides", "base",      "flags", "names",
                     "fields", "kind",     "char",   "str",     "byteorder", "num",   "alignment"},
                    name);
}

/// A type that is compiled in cannot be derived under its own name, so the name and the flag tell it.
bool isCompiledIn(const PyTypeObject* type) { return (type->tp_flags & Py_TPFLAGS_HEAPTYPE) == 0; }

bool isOwnType(PyTypeObject* type, const char* fullName) {
    return ClassRegistry::instance().objectOf(type).getID().view() == fullName;
}

Ref axisAt(PyObject* object, Py_ssize_t position) {
    const Ref axes = axesOf(object);
    const bool exists = axes && position < PyList_GET_SIZE(axes.get());
    return exists ? Ref::share(PyList_GET_ITEM(axes.get(), position)) : Ref();
}

/// Frames and series keep their axes and names as plain data behind their properties.
Ref readFrame(PyObject* object, std::string_view name) {
    if (isOwnType(Py_TYPE(object), "pandas.core.frame.DataFrame")) {
        if (name == "columns" || name == "index") {
            return axisAt(object, name == "columns" ? 0 : 1);
        }
        return {};
    }
    if (!isOwnType(Py_TYPE(object), "pandas.core.series.Series")) {
        return {};
    }
    if (name == "index") {
        return axisAt(object, 0);
    }
    const Ref key = Ref::steal(name == "name" ? makeText("_name") : nullptr);
    return key ? Ref::share(findItem(instanceDictionary(object), key.get())) : Ref();
}

/// A member of an enumeration keeps its name and value in its own dictionary, behind properties of the base.
Ref readEnumerationMember(PyObject* object, const RawAttribute& attribute, std::string_view name) {
    if (!isOwnType(attribute.owner, "enum.Enum") || (name != "name" && name != "value")) {
        return {};
    }
    const Ref key = Ref::steal(makeText(name == "name" ? "_name_" : "_value_"));
    return key ? Ref::share(findItem(instanceDictionary(object), key.get())) : Ref();
}

}  // namespace

bool isKnownGetter(PyTypeObject* type, std::string_view name) {
    return isKnownNumberGetter(type, name) || (isCompiledIn(type) && isKnownDateGetter(type, name)) ||
           isKnownArrayGetter(type, name);
}

bool isKnownItemGetter(PyObject* descriptor) noexcept {
    const PyTypeObject* type = Py_TYPE(descriptor);
    return isCompiledIn(type) && isNamedType(type, "_collections._tuplegetter");
}

Ref readKnownGetter(PyObject* object, const RawAttribute& attribute, PyObject* name) {
    const std::string text = lossyUtf8Of(name);
    if (Py_TYPE(attribute.value) == &PyGetSetDescr_Type) {
        return isKnownGetter(Py_TYPE(object), text) ? callGetter(object, attribute.value) : Ref();
    }
    Ref member = readEnumerationMember(object, attribute, text);
    return member ? member : readFrame(object, text);
}

Ref readKnownWrapper(PyObject* wrapper) {
    if (Py_TYPE(wrapper) != &PyStaticMethod_Type) {
        return {};
    }
    for (const PyMemberDef* member = PyStaticMethod_Type.tp_members; member->name != nullptr; ++member) {
        if (std::string_view(member->name) == "__func__") {
            return Ref::steal(
                PyMember_GetOne(reinterpret_cast<const char*>(wrapper), const_cast<PyMemberDef*>(member)));
        }
    }
    return {};
}

}  // namespace python_host
