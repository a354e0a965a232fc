// Sorts items by name.
#pragma once

#include <vector>

#include "frontends/completion/item.h"

namespace contextdata::completion {

/// By code unit; items of one name stay in the order they had.
void sortByName(std::vector<Item>& items);

}  // namespace contextdata::completion
