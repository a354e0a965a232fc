#include "hosts/python/objects/instance_attributes.h"

#include <string>

#include "hosts/python/dictionaries.h"
#include "hosts/python/interning.h"
#include "hosts/python/python_text.h"
#include "hosts/python/references.h"

namespace python_host {

PyObject* instanceDictionary(PyObject* object) noexcept {
    PyObject** dictionary = _PyObject_GetDictPtr(object);
    return dictionary == nullptr ? nullptr : *dictionary;
}

PyObject* storedAttribute(PyObject* object, const char* name) {
    const Ref key = Ref::steal(makeText(name));
    return key ? findItem(instanceDictionary(object), key.get()) : nullptr;
}

void appendPublicKeys(PyObject* dictionary, UniqueNameList& names) {
    std::string buffer;
    eachTextItem(dictionary, [&](PyObject* key, PyObject* /*value*/) {
        const auto name = utf8Of(key, buffer);
        if (name && !startsWithUnderscore(*name) && isIdentifier(key)) {
            names.append(*name);
        }
    });
}

void appendIfNew(PyObject* name, const MemberTable& members, UniqueNameList& names) {
    if (!PyUnicode_CheckExact(name) || !isIdentifier(name)) {
        return;
    }
    std::string buffer;
    const auto text = utf8Of(name, buffer);
    if (text && !startsWithUnderscore(*text) && !members.hasName(findInterned(*text))) {
        names.append(*text);
    }
}

}  // namespace python_host
