#include "frontends/python/src/live_members.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "frontends/completion/class_members.h"
#include "frontends/completion/value_members.h"
#include "frontends/python/src/listing_cache.h"
#include "frontends/python/src/module_members.h"
#include "frontends/python/src/own_names.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::Item;
using completion::Items;
using completion::Side;
using completion::Subject;
using ZELKContextData::ResolvedClassID;

namespace {

std::optional<std::uint64_t> versionOfClass(PyTypeObject* type) {
    const auto stamp = python_host::stampOf(type);
    return stamp ? std::optional(stamp->version) : std::nullopt;
}

/// The version of a module's dict, which no other state of any dict has: what a module offers is what it binds.
std::optional<std::uint64_t> versionOfModule([[maybe_unused]] PyObject* module) {
#if PY_VERSION_HEX < 0x030C0000
    return reinterpret_cast<PyDictObject*>(PyModule_GetDict(module))->ma_version_tag;
#else
    return std::nullopt;
#endif
}

/// The listing of a subject: the kept one, else a new one, which is kept if the subject did not change meanwhile.
template <class VersionOf, class List>
ListingPtr listingOf(const void* subject, Listed listed, VersionOf versionOf, List list) {
    const std::optional<std::uint64_t> version = versionOf();
    if (version) {
        if (ListingPtr kept = listingCache().find(subject, listed, *version)) {
            return kept;
        }
    }
    ListingPtr listing = list();
    if (version && versionOf() == version) {
        listingCache().keep(subject, listed, *version, listing);
    }
    return listing;
}

ListingPtr newListingOfClass(PyTypeObject* type, Side side) {
    const auto id = ResolvedClassID::fromKnownResolvedClassID(python_host::classIdOf(type));
    return std::make_shared<const Listing>(membersOfClass(id, side), python_host::hasDirectoryHook(type));
}

ListingPtr listingOfClass(PyTypeObject* type, Side side) {
    return listingOf(
        type, side == Side::object ? Listed::object : Listed::classItself, [type] { return versionOfClass(type); },
        [type, side] { return newListingOfClass(type, side); });
}

ListingPtr listingOfModule(const qxSharedArray& value, PyObject* module) {
    return listingOf(
        module, Listed::module, [module] { return versionOfModule(module); },
        [&value, module] { return std::make_shared<const Listing>(membersOfModule(value, module)); });
}

/// What an object adds to its class, sorted.
Items beyond(const Listing& ofClass, std::vector<Item> own) {
    std::erase_if(own, [&](const Item& item) { return ofClass.contains(item.name); });
    return sortedOnce(std::move(own));
}

pybind11::object membersOfObject(const qxSharedArray& value, PyObject* object, std::u16string_view prefix) {
    ListingPtr ofClass = listingOfClass(Py_TYPE(object), Side::object);
    std::vector<Item> own = ownNames(value, object);
    if (ofClass->objectsAreAsked()) {
        // The hook is code of the class's author: what it did to the class is to be seen.
        ofClass = listingOfClass(Py_TYPE(object), Side::object);
    }
    const Items more = beyond(*ofClass, std::move(own));
    return more.empty() ? ofClass->tupleOf(prefix) : ofClass->tupleWith(more, prefix);
}

}  // namespace

pybind11::object membersOfNamed(const Subject& subject, std::u16string_view prefix) {
    return Listing(withoutPrivateModules(membersOf(subject))).tupleOf(prefix);
}

pybind11::object membersOfValue(const qxSharedArray& value, std::u16string_view prefix) {
    PyObject* object = python_host::unwrap(value.get());
    if (object == nullptr) {
        return membersOfNamed(completion::describe(value), prefix);
    }
    if (PyType_Check(object)) {
        return listingOfClass(reinterpret_cast<PyTypeObject*>(object), Side::classItself)->tupleOf(prefix);
    }
    if (PyModule_Check(object)) {
        return listingOfModule(value, object)->tupleOf(prefix);
    }
    return membersOfObject(value, object, prefix);
}

}  // namespace contextdata::python
