#include "frontends/python/src/listing.h"

#include <utility>

#include "frontends/python/src/python_text.h"
#include "frontends/python/src/results.h"

namespace contextdata::python {

namespace {

/// The names of declaring classes, each made once for its neighbours.
class Definers {
public:
    pybind11::object of(const std::u16string& name) {
        if (name.empty()) {
            return pybind11::none();
        }
        if (name != lastName_) {
            last_ = strOf(name);
            lastName_ = name;
        }
        return last_;
    }

private:
    std::u16string lastName_;
    pybind11::object last_;
};

/// A tuple that is filled from its first place on.
class TupleBuilder {
public:
    explicit TupleBuilder(std::size_t size) : tuple_(size) {}

    void add(pybind11::object completion) { PyTuple_SET_ITEM(tuple_.ptr(), size_++, completion.release().ptr()); }

    void addNew(const completion::Item& item) { add(completionOf(item, definers_.of(item.definingClass))); }

    void addKnown(const pybind11::tuple& completions, std::size_t index) {
        add(pybind11::reinterpret_borrow<pybind11::object>(
            PyTuple_GET_ITEM(completions.ptr(), static_cast<Py_ssize_t>(index))));
    }

    pybind11::tuple take() { return std::move(tuple_); }

private:
    pybind11::tuple tuple_;
    Py_ssize_t size_ = 0;
    Definers definers_;
};

pybind11::tuple completionsOf(const completion::Items& items) {
    TupleBuilder completions(items.size());
    for (const completion::Item& item : items) {
        completions.addNew(item);
    }
    return completions.take();
}

std::unordered_set<std::u16string_view> namesOf(const completion::Items& items) {
    std::unordered_set<std::u16string_view> names;
    names.reserve(items.size());
    for (const completion::Item& item : items) {
        names.insert(item.name);
    }
    return names;
}

}  // namespace

Listing::Listing(completion::Items items, bool objectsAreAsked)
    : items_(std::move(items)),
      names_(namesOf(items_)),
      completions_(completionsOf(items_)),
      objectsAreAsked_(objectsAreAsked) {}

pybind11::object Listing::tupleOf(std::u16string_view prefix) const {
    const auto [first, last] = rangeOfPrefix(items_, prefix);
    PyObject* slice =
        PyTuple_GetSlice(completions_.ptr(), static_cast<Py_ssize_t>(first), static_cast<Py_ssize_t>(last));
    if (slice == nullptr) {
        throw pybind11::error_already_set();
    }
    return pybind11::reinterpret_steal<pybind11::object>(slice);
}

pybind11::object Listing::tupleWith(const completion::Items& more, std::u16string_view prefix) const {
    auto [here, hereEnd] = rangeOfPrefix(items_, prefix);
    auto [there, thereEnd] = rangeOfPrefix(more, prefix);
    TupleBuilder merged((hereEnd - here) + (thereEnd - there));
    while (here != hereEnd || there != thereEnd) {
        if (there == thereEnd || (here != hereEnd && items_[here].name < more[there].name)) {
            merged.addKnown(completions_, here++);
        } else {
            merged.addNew(more[there++]);
        }
    }
    return merged.take();
}

}  // namespace contextdata::python
