#include "frontends/python/src/listing.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

#include "frontends/completion/name_order.h"
#include "frontends/python/src/new_objects.h"
#include "frontends/python/src/python_text.h"
#include "frontends/python/src/results.h"

namespace contextdata::python {

using completion::Choice;
using completion::comesBefore;
using completion::Item;
using completion::Items;
using completion::Match;
using completion::SortKey;
using completion::Typed;

namespace {

/// The names of declaring classes, each made once for its neighbours.
class Definers {
public:
    pybind11::object of(const completion::SharedText& name) {
        if (name.empty()) {
            return pybind11::none();
        }
        if (name != lastName_) {
            last_ = strOf(name.text());
            lastName_ = name;
        }
        return last_;
    }

private:
    completion::SharedText lastName_;
    pybind11::object last_;
};

/// A tuple that is filled from its first place on.
class TupleBuilder {
public:
    explicit TupleBuilder(std::size_t size) : tuple_(newTuple(size)) {}

    void addNew(const Item& item) { add(completionOf(item, definers_.of(item.definingClass))); }

    void addKnown(const pybind11::tuple& completions, std::size_t place) {
        add(pybind11::reinterpret_borrow<pybind11::object>(
            PyTuple_GET_ITEM(completions.ptr(), static_cast<Py_ssize_t>(place))));
    }

    void addKnown(const pybind11::tuple& completions, std::size_t first, std::size_t last) {
        for (std::size_t place = first; place < last; ++place) {
            addKnown(completions, place);
        }
    }

    pybind11::tuple take() { return std::move(tuple_); }

private:
    void add(pybind11::object completion) { PyTuple_SET_ITEM(tuple_.ptr(), size_++, completion.release().ptr()); }

    pybind11::tuple tuple_;
    Py_ssize_t size_ = 0;
    Definers definers_;
};

/// The completions [first, last), with more items among them, each before the place that `placeOf` answers for it.
/// Those places do not fall.
template <class PlaceOf>
pybind11::tuple merged(const pybind11::tuple& completions, std::size_t first, std::size_t last, const Items& more,
                       PlaceOf placeOf) {
    TupleBuilder builder(last - first + more.size());
    for (const Item& item : more) {
        const std::size_t place = placeOf(item);
        builder.addKnown(completions, first, place);
        builder.addNew(item);
        first = place;
    }
    builder.addKnown(completions, first, last);
    return builder.take();
}

/// How an item stands beside others that fit equally well.
SortKey standingOf(const Item& item) { return sortKeyOf(item, Match::beginning); }

}  // namespace

pybind11::tuple tupleOfItems(const Items& items) {
    TupleBuilder completions(items.size());
    for (const Item& item : items) {
        completions.addNew(item);
    }
    return completions.take();
}

Listing::Listing(Items items, bool objectsAreAsked)
    : items_(std::move(items)), completions_(tupleOfItems(items_)), objectsAreAsked_(objectsAreAsked) {}

Listing::Listing(pybind11::tuple completions, std::function<Items(const pybind11::tuple&)> itemsOf)
    : completions_(std::move(completions)), itemsOf_(std::move(itemsOf)), objectsAreAsked_(false) {}

const Items& Listing::items() const {
    if (itemsOf_) {
        items_ = itemsOf_(completions_);
        itemsOf_ = nullptr;
    }
    return items_;
}

pybind11::object Listing::completion(std::size_t place) const {
    return pybind11::reinterpret_borrow<pybind11::object>(
        PyTuple_GET_ITEM(completions_.ptr(), static_cast<Py_ssize_t>(place)));
}

pybind11::object Listing::tupleOf(const Choice& choice, Items more) const {
    return choice.isRanked ? ranked(choice.typed, std::move(more)) : sorted(choice.typed, std::move(more));
}

pybind11::object Listing::sorted(std::u16string_view prefix, Items more) const {
    if (more.empty()) {
        return withPrefix(prefix);
    }
    more = chosen(std::move(more), {prefix});
    const std::pair<std::size_t, std::size_t> range = rangeOfPrefix(items(), prefix);
    const auto first = items().begin() + static_cast<std::ptrdiff_t>(range.first);
    const auto last = items().begin() + static_cast<std::ptrdiff_t>(range.second);
    const auto isBefore = [](const Item& left, const Item& right) { return comesBefore(left.name, right.name); };
    return merged(completions_, range.first, range.second, more, [&](const Item& item) {
        return static_cast<std::size_t>(std::lower_bound(first, last, item, isBefore) - items().begin());
    });
}

pybind11::object Listing::withPrefix(std::u16string_view prefix) const {
    if (prefix.empty()) {
        return completions_;
    }
    const std::pair<std::size_t, std::size_t> range = rangeOfPrefix(items(), prefix);
    return orThrow(PyTuple_GetSlice(completions_.ptr(), static_cast<Py_ssize_t>(range.first),
                                    static_cast<Py_ssize_t>(range.second)));
}

pybind11::object Listing::ranked(std::u16string_view text, Items more) const {
    for (Item& item : more) {
        item.sortKey = standingOf(item);
    }
    std::sort(more.begin(), more.end(), completion::ranksBefore);
    if (text.empty()) {
        return allRanked(more);
    }
    const Typed typed(text);
    pybind11::object close = fitting(more, [&typed](const Item& item) { return typed.closeMatch(item.name); });
    const bool hasClose = PyTuple_GET_SIZE(close.ptr()) > 0;
    return hasClose ? close : fitting(more, [&typed](const Item& item) { return typed.match(item.name); });
}

pybind11::object Listing::allRanked(const Items& more) const {
    const Ranking& order = ranking();
    if (more.empty()) {
        return order.completions;
    }
    const auto isBefore = [&](std::uint32_t place, const Item& item) {
        const SortKey key = order.keys[place];
        return key != item.sortKey ? key < item.sortKey : comesBefore(items()[place].name, item.name);
    };
    return merged(order.completions, 0, items().size(), more, [&](const Item& item) {
        const auto place = std::lower_bound(order.places.begin(), order.places.end(), item, isBefore);
        return static_cast<std::size_t>(place - order.places.begin());
    });
}

/// All that match at all, the best match first. `more` is in order of rank.
template <class MatchOf>
pybind11::object Listing::fitting(const Items& more, MatchOf matchOf) const {
    struct Found {
        const Item* item;
        bool isListed;
    };
    std::array<std::vector<Found>, static_cast<std::size_t>(Match::none) + 1> found;
    const auto add = [&](const Item& item, bool isListed) {
        const Match match = matchOf(item);
        if (match != Match::none) {
            found[static_cast<std::size_t>(match)].push_back({&item, isListed});
        }
    };
    const Ranking& order = ranking();
    auto next = more.begin();
    for (const std::uint32_t place : order.places) {
        const Item& item = items()[place];
        for (; next != more.end() && std::pair(next->sortKey, std::u16string_view(next->name)) <
                                         std::pair(order.keys[place], std::u16string_view(item.name));
             ++next) {
            add(*next, false);
        }
        add(item, true);
    }
    for (; next != more.end(); ++next) {
        add(*next, false);
    }
    TupleBuilder builder(std::accumulate(found.begin(), found.end(), std::size_t{0},
                                         [](std::size_t sum, const auto& some) { return sum + some.size(); }));
    for (const auto& some : found) {
        for (const Found& each : some) {
            each.isListed ? builder.addKnown(completions_, static_cast<std::size_t>(each.item - items().data()))
                          : builder.addNew(*each.item);
        }
    }
    return builder.take();
}

const Listing::Ranking& Listing::ranking() const {
    if (ranking_) {
        return *ranking_;
    }
    Ranking order;
    order.keys.reserve(items().size());
    std::transform(items().begin(), items().end(), std::back_inserter(order.keys), standingOf);
    order.places.resize(items().size());
    std::iota(order.places.begin(), order.places.end(), 0U);
    // The listing is sorted by name, so what is stable here goes by name.
    std::stable_sort(order.places.begin(), order.places.end(),
                     [&](std::uint32_t left, std::uint32_t right) { return order.keys[left] < order.keys[right]; });
    TupleBuilder completions(items().size());
    for (const std::uint32_t place : order.places) {
        completions.addKnown(completions_, place);
    }
    order.completions = completions.take();
    // Making objects may collect garbage, and so let others in who were quicker, and hold on to what they made.
    return ranking_ ? *ranking_ : ranking_.emplace(std::move(order));
}

}  // namespace contextdata::python
