#include "hosts/python/annotations/annotation_enumerations.h"

#include <string_view>
#include <utility>

#include "hosts/python/annotations/annotation_objects.h"
#include "hosts/python/classes/resolution_order.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/keys.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

/// The dictionary from names to members; empty for a class that is no enumeration.
Ref membersOf(PyTypeObject* type) {
    PyTypeObject* metaclass = loadedClass("enum", "EnumType");
    if (metaclass == nullptr || !derivesFrom(Py_TYPE(asObject(type)), metaclass)) {
        return {};
    }
    PyObject* members = findItem(type->tp_dict, keys().memberMap);
    return Ref::share(members != nullptr && PyDict_CheckExact(members) ? members : nullptr);
}

bool bearsName(PyObject* member, PyObject* name) { return storedText(member, "_name_") == lossyUtf8Of(name); }

}  // namespace

Ref enumerationMember(PyTypeObject* type, PyObject* name) {
    const Ref members = membersOf(type);
    return Ref::share(findItem(members.get(), name));
}

std::vector<std::string> enumerationMemberNames(PyTypeObject* type) {
    const Ref members = membersOf(type);
    std::vector<std::pair<Ref, Ref>> entries;
    eachTextItem(members.get(),
                 [&](PyObject* key, PyObject* member) { entries.emplace_back(Ref::share(key), Ref::share(member)); });
    std::vector<std::string> names;
    for (const auto& [name, member] : entries) {
        if (bearsName(member.get(), name.get())) {
            names.push_back(lossyUtf8Of(name.get()));
        }
    }
    return names;
}

bool hasCombinedMembers(PyTypeObject* type) {
    PyTypeObject* flag = loadedClass("enum", "Flag");
    return flag != nullptr && derivesFrom(type, flag);
}

std::string enumerationMemberText(PyObject* object) {
    const Ref members = membersOf(Py_TYPE(object));
    if (!members) {
        return {};
    }
    const Ref name = storedAttribute(object, "_name_");
    const bool isMember = name && PyUnicode_CheckExact(name.get()) && findItem(members.get(), name.get()) == object;
    if (!isMember) {
        return {};
    }
    const std::string_view className = Py_TYPE(object)->tp_name;
    return std::string(className.substr(className.rfind('.') + 1)) + '.' + lossyUtf8Of(name.get());
}

}  // namespace python_host
