#include "frontends/completion/sort_by_name.h"

#include <cstddef>
#include <span>
#include <utility>

#include "frontends/completion/places_by_name.h"

namespace contextdata::completion {

namespace {

/// Moves each item to where it belongs; `places` says for each position which item comes there, and is used up.
void rearrange(std::vector<Item>& items, std::vector<Place> places) {
    for (std::size_t first = 0; first < places.size(); ++first) {
        if (places[first].index == first) {
            continue;
        }
        Item carried = std::move(items[first]);
        std::size_t free = first;
        while (places[free].index != first) {
            const std::size_t next = std::exchange(places[free].index, free);
            items[free] = std::move(items[next]);
            free = next;
        }
        places[free].index = free;
        items[free] = std::move(carried);
    }
}

}  // namespace

void sortByName(std::vector<Item>& items) {
    rearrange(items, placesByName(items.size(), [&items](std::size_t index) {
                  return std::span<const char16_t>(items[index].name);
              }));
}

}  // namespace contextdata::completion
