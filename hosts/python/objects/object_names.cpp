#include "hosts/python/objects/object_names.h"

#include <string>
#include <utility>

#include "hosts/python/classes/class_registry.h"
#include "hosts/python/dictionaries.h"
#include "hosts/python/errors.h"
#include "hosts/python/namespaces/live_modules.h"
#include "hosts/python/objects/directory_hook.h"
#include "hosts/python/objects/instance_attributes.h"
#include "hosts/python/python_host.h"
#include "hosts/python/python_text.h"
#include "hosts/python/values/value_kinds.h"

namespace python_host {

namespace {

MemberTable::Handle membersOf(PyObject* object) {
    return ClassRegistry::instance().objectOf(Py_TYPE(object)).members();
}

bool isOffered(const MemberFacts& facts) { return facts.listable && facts.access == zelk::publicAccess; }

void appendClassProperties(const MemberTable& members, UniqueNameList& names) {
    for (const PropertyNode& property : members.properties()) {
        if (isOffered(property.facts())) {
            names.append(property.facts().name.view());
        }
    }
}

/// The variables of a module: what is neither class nor function nor module has no list of its own.
void appendModuleVariables(PyObject* module, UniqueNameList& names) {
    std::string buffer;
    eachTextItem(PyModule_GetDict(module), [&](PyObject* key, PyObject* value) {
        if (PyType_Check(value) || PyModule_Check(value) || isKnownFunction(value) || !isIdentifier(key)) {
            return;
        }
        const auto name = utf8Of(key, buffer);
        if (name && !startsWithUnderscore(*name)) {
            names.append(*name);
        }
    });
}

}  // namespace

NameList methodNamesOf(PyObject* object) {
    checkForInterrupt();
    NameList names;
    const MemberTable::Handle members = membersOf(object);
    for (const MethodNode& method : members->methods()) {
        if (isOffered(method.facts())) {
            names.append(method.facts().name.view());
        }
    }
    return names;
}

NameList propertyNamesOf(PyObject* object) {
    checkForInterrupt();
    UniqueNameList names;
    const MemberTable::Handle members = membersOf(object);
    appendClassProperties(*members, names);
    if (PyModule_Check(object)) {
        appendModuleVariables(object, names);
    } else if (!PyType_Check(object)) {
        appendPublicKeys(instanceDictionary(object), names);
        appendDirectory(object, *members, names);
    }
    return std::move(names).take();
}

PyObject* attributesOf(PyObject* object) noexcept { return instanceDictionary(object); }

std::vector<std::string> directoryNamesOf(PyObject* object) {
    checkForInterrupt();
    UniqueNameList names;
    appendDirectory(object, *membersOf(object), names);
    const NameList added = std::move(names).take();
    return {added.names().begin(), added.names().end()};
}

std::optional<std::uint64_t> versionOfNames(PyObject* object) noexcept {
    PyObject* names = PyDict_CheckExact(object) ? object : instanceDictionary(object);
    return names != nullptr && PyDict_Check(names) ? std::optional(versionOf(names)) : std::nullopt;
}

std::vector<std::string> concealedNamesOf(PyObject* object) {
    checkForInterrupt();
    std::vector<std::string> names;
    if (PyType_Check(object) || PyModule_Check(object)) {
        return names;
    }
    std::string buffer;
    eachTextItem(instanceDictionary(object), [&](PyObject* key, PyObject* /*value*/) {
        const auto name = utf8Of(key, buffer);
        if (name && startsWithUnderscore(*name) && !name->starts_with("__") && isIdentifier(key)) {
            names.emplace_back(*name);
        }
    });
    return names;
}

NameList fieldNamesOf(PyObject* object) {
    NameList names;
    if (classIdOfObject(object) != qxClassID::structure) {
        return names;
    }
    PyObject* fields = PyDict_CheckExact(object) ? object : instanceDictionary(object);
    eachTextItem(fields, [&](PyObject* key, PyObject* /*value*/) { names.append(lossyUtf8Of(key)); });
    return names;
}

NameList classNameOf(PyObject* object) {
    NameList names;
    names.append(ClassRegistry::instance().objectOf(Py_TYPE(object)).getID().view());
    return names;
}

NameList denotationOf(PyObject* object) {
    NameList names;
    if (PyType_Check(object)) {
        names.append("class");
        names.append(ClassRegistry::instance().objectOf(asType(object)).getID().view());
    } else if (PyModule_Check(object)) {
        const std::string name = loadedName(object);
        if (!name.empty()) {
            names.append("namespace");
            names.append(name);
        }
    }
    return names;
}

}  // namespace python_host
