#include "frontends/python/src/crowd_listing.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "frontends/completion/places_by_name.h"
#include "frontends/python/src/new_objects.h"
#include "frontends/python/src/python_text.h"
#include "frontends/python/src/results.h"

namespace contextdata::python {

using completion::Item;
using completion::Items;
using completion::Kind;

namespace {

/// Held, so that they outlive their dictionary's changes.
using Keys = std::vector<pybind11::object>;

std::span<const Py_UCS1> unitsOf(const pybind11::object& key) {
    return {PyUnicode_1BYTE_DATA(key.ptr()), static_cast<std::size_t>(PyUnicode_GET_LENGTH(key.ptr()))};
}

/// The public keys, in the dictionary's order; nothing when Python keeps one in more than a byte a letter.
std::optional<Keys> publicKeys(PyObject* dictionary) {
    Keys keys;
    keys.reserve(static_cast<std::size_t>(PyDict_GET_SIZE(dictionary)));
    Py_ssize_t position = 0;
    PyObject* key = nullptr;
    while (PyDict_Next(dictionary, &position, &key, nullptr) != 0) {
        if (!isPublicName(key)) {
            continue;
        }
        if (PyUnicode_KIND(key) != PyUnicode_1BYTE_KIND) {
            return std::nullopt;
        }
        keys.push_back(pybind11::reinterpret_borrow<pybind11::object>(key));
    }
    return keys;
}

Keys sorted(Keys keys) {
    Keys inOrder;
    inOrder.reserve(keys.size());
    for (const completion::Place& place :
         completion::placesByName(keys.size(), [&keys](std::size_t index) { return unitsOf(keys[index]); })) {
        inOrder.push_back(std::move(keys[place.index]));
    }
    return inOrder;
}

/// The sorted keys that no item has as name.
Keys without(Keys keys, const Items& items) {
    auto item = items.begin();
    std::erase_if(keys, [&](const pybind11::object& key) {
        const std::span<const Py_UCS1> name = unitsOf(key);
        item = std::find_if(item, items.end(), [name](const Item& each) {
            return !std::ranges::lexicographical_compare(each.name, name);
        });
        return item != items.end() && std::ranges::equal(name, item->name);
    });
    return keys;
}

/// The completions of a class's listing, with those of sorted keys among them that it lacks.
pybind11::tuple tupleOfBoth(const Listing& ofClass, Keys keys, Kind kind) {
    pybind11::tuple both = newTuple(ofClass.items().size() + keys.size());
    Py_ssize_t size = 0;
    const auto add = [&](pybind11::object completion) {
        PyTuple_SET_ITEM(both.ptr(), size++, completion.release().ptr());
    };
    auto key = keys.begin();
    for (std::size_t place = 0; place < ofClass.items().size(); ++place) {
        const std::u16string& name = ofClass.items()[place].name;
        for (; key != keys.end() && std::ranges::lexicographical_compare(unitsOf(*key), name); ++key) {
            add(completionOf(std::move(*key), kind, pybind11::none()));
        }
        add(ofClass.completion(place));
    }
    for (; key != keys.end(); ++key) {
        add(completionOf(std::move(*key), kind, pybind11::none()));
    }
    return both;
}

/// The items behind the names of completions, as if all were of one kind and of the object itself.
Items itemsOf(const pybind11::tuple& completions, Kind kind) {
    Items items;
    items.reserve(completions.size());
    for (Py_ssize_t place = 0; place < PyTuple_GET_SIZE(completions.ptr()); ++place) {
        PyObject* name = nameOf(PyTuple_GET_ITEM(completions.ptr(), place));
        items.push_back({utf16Of(name, PyUnicode_GET_LENGTH(name)), kind});
    }
    return items;
}

}  // namespace

ListingPtr crowdListing(const ListingPtr& ofClass, PyObject* dictionary, Kind kind) {
    std::optional<Keys> keys = publicKeys(dictionary);
    if (!keys) {
        return nullptr;
    }
    pybind11::tuple both = tupleOfBoth(*ofClass, without(sorted(std::move(*keys)), ofClass->items()), kind);
    return std::make_shared<const Listing>(std::move(both), [ofClass, kind](const pybind11::tuple& completions) {
        // The items of the class are those that its listing has.
        return merged(ofClass->items(), itemsOf(completions, kind));
    });
}

}  // namespace contextdata::python
