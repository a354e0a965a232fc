#include "frontends/python/src/live_members.h"

#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "frontends/completion/class_members.h"
#include "frontends/completion/value_members.h"
#include "frontends/python/src/crowd_listing.h"
#include "frontends/python/src/crowded_object.h"
#include "frontends/python/src/insider_items.h"
#include "frontends/python/src/listing_cache.h"
#include "frontends/python/src/module_members.h"
#include "frontends/python/src/own_names.h"
#include "hosts/python/python_host.h"

namespace contextdata::python {

using completion::Choice;
using completion::Item;
using completion::Items;
using completion::Side;
using completion::Subject;
using ZELKContextData::ResolvedClassID;

namespace {

ResolvedClassID idOf(PyTypeObject* type) {
    return ResolvedClassID::fromKnownResolvedClassID(python_host::classIdOf(type));
}

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
    return std::make_shared<const Listing>(completion::membersOfClass(idOf(type), side),
                                           python_host::hasDirectoryHook(type));
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

/// A listing with what it is lacking of more items, which are in any order.
pybind11::object tupleOfBoth(const Listing& listing, std::vector<Item> more, const Choice& choice) {
    return listing.tupleOf(choice, without(sortedOnce(std::move(more)), listing.items()));
}

pybind11::object membersOfClass(PyTypeObject* type, const Choice& choice, const Asker& asker) {
    const ListingPtr listing = listingOfClass(type, Side::classItself);
    return asker.cls.isNull() ? listing->tupleOf(choice)
                              : tupleOfBoth(*listing, insiderItems(idOf(type), nullptr, asker), choice);
}

/// The version of the names that an object adds to those of its class, when it adds no others; 0 when that may be.
std::uint64_t versionOfOwnNames(PyObject* object, const Listing& ofClass, const Asker& asker) {
    const bool isPlain = asker.cls.isNull() && !ofClass.objectsAreAsked();
    return isPlain ? python_host::versionOfNames(object).value_or(0) : 0;
}

/// Made of the names as Python has them, when they are very many; null otherwise.
ListingPtr listingOfCrowd(const qxSharedArray& value, PyObject* object, const ListingPtr& ofClass) {
    const auto names = pybind11::reinterpret_borrow<pybind11::object>(python_host::attributesOf(object));
    const bool areMany = names && PyDict_Check(names.ptr()) &&
                         PyDict_GET_SIZE(names.ptr()) >= static_cast<Py_ssize_t>(CrowdedObject::fewestNames);
    return areMany ? crowdListing(ofClass, names.ptr(), kindOfOwnNames(value)) : nullptr;
}

pybind11::object membersOfObject(const qxSharedArray& value, PyObject* object, const Choice& choice,
                                 const Asker& asker) {
    ListingPtr ofClass = listingOfClass(Py_TYPE(object), Side::object);
    const std::uint64_t version = versionOfOwnNames(object, *ofClass, asker);
    if (const ListingPtr kept = crowdedObject().find(ofClass, version)) {
        return kept->tupleOf(choice);
    }
    if (const ListingPtr all = version != 0 ? listingOfCrowd(value, object, ofClass) : nullptr) {
        // Its names were read before anything could change them.
        crowdedObject().keep(ofClass, version, all);
        return all->tupleOf(choice);
    }
    std::vector<Item> own = ownNames(value, object);
    if (version != 0 && own.size() >= CrowdedObject::fewestNames &&
        versionOfOwnNames(object, *ofClass, asker) == version) {
        const auto all = std::make_shared<const Listing>(merged(ofClass->items(), sortedOnce(std::move(own))));
        crowdedObject().keep(ofClass, version, all);
        return all->tupleOf(choice);
    }
    if (ofClass->objectsAreAsked()) {
        // The hook is code of the class's author: what it did to the class is to be seen.
        ofClass = listingOfClass(Py_TYPE(object), Side::object);
    }
    if (!asker.cls.isNull()) {
        Items insiders = insiderItems(idOf(Py_TYPE(object)), object, asker);
        own.insert(own.end(), std::make_move_iterator(insiders.begin()), std::make_move_iterator(insiders.end()));
    }
    return tupleOfBoth(*ofClass, std::move(own), choice);
}

}  // namespace

pybind11::object membersOfNamed(const Subject& subject, const Choice& choice, const Asker& asker) {
    const Items offered = withoutPrivateModules(membersOf(subject));
    return tupleOfItems(chosen(merged(offered, insiderItems(subject.cls, nullptr, asker)), choice));
}

pybind11::object membersOfValue(const qxSharedArray& value, const Choice& choice, const Asker& asker) {
    PyObject* object = python_host::unwrap(value.get());
    if (object == nullptr) {
        return membersOfNamed(completion::describe(value), choice, asker);
    }
    if (PyType_Check(object)) {
        return membersOfClass(reinterpret_cast<PyTypeObject*>(object), choice, asker);
    }
    if (PyModule_Check(object)) {
        return listingOfModule(value, object)->tupleOf(choice);
    }
    return membersOfObject(value, object, choice, asker);
}

}  // namespace contextdata::python
