#include "frontends/python/src/own_attributes.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "frontends/completion/ask.h"
#include "frontends/completion/lineage.h"
#include "frontends/python/src/description_objects.h"
#include "frontends/python/src/new_objects.h"
#include "frontends/python/src/own_names.h"
#include "frontends/python/src/private_names.h"
#include "host/i18n.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::ClassDescription;

namespace {

std::unordered_set<std::u16string_view> namesIn(const ClassDescription& description) {
    std::unordered_set<std::u16string_view> names;
    const auto add = [&names](const auto& members) {
        for (const auto& member : members) {
            names.insert(member.name);
        }
    };
    add(description.enumerationMembers);
    add(description.constants);
    add(description.properties);
    add(description.staticMethods);
    add(description.methods);
    return names;
}

}  // namespace

std::vector<OwnAttribute> ownAttributes(const qxSharedArray& value, const ZELKContextData::ResolvedClassID& cls) {
    PyObject* object = python_host::unwrap(value.get());
    std::vector<OwnAttribute> attributes;
    for (completion::Item& item : ownNames(value, object)) {
        attributes.push_back({std::move(item.name)});
    }
    const completion::Lineage lineage(cls);
    for (const std::string& text : completion::unlessItFails([&] { return python_host::concealedNamesOf(object); })) {
        std::u16string name = fl::i18n::to_ustring(text);
        const bool isPrivate = isPrivateToOneOf(lineage, name);
        attributes.push_back({std::move(name), isPrivate ? "private" : "protected"});
    }
    return attributes;
}

pybind11::tuple attributeObjects(std::vector<OwnAttribute> attributes, const ClassDescription& ofClass) {
    std::unordered_set<std::u16string_view> seen = namesIn(ofClass);
    std::erase_if(attributes, [&](const OwnAttribute& attribute) { return seen.contains(attribute.name); });
    std::stable_sort(attributes.begin(), attributes.end(),
                     [](const OwnAttribute& left, const OwnAttribute& right) { return left.name < right.name; });
    const auto sameName = [](const OwnAttribute& left, const OwnAttribute& right) { return left.name == right.name; };
    attributes.erase(std::unique(attributes.begin(), attributes.end(), sameName), attributes.end());
    pybind11::tuple objects = newTuple(attributes.size());
    for (std::size_t place = 0; place < attributes.size(); ++place) {
        PyTuple_SET_ITEM(objects.ptr(), static_cast<Py_ssize_t>(place),
                         memberObject(attributes[place].name, attributes[place].access).release().ptr());
    }
    return objects;
}

}  // namespace contextdata::python
