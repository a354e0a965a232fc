#include "hosts/python/objects/name_list.h"

#include <algorithm>

namespace python_host {

void NameList::append(std::string_view name) {
    auto* text = static_cast<char*>(arena_->allocate(name.size() + 1, 1));
    std::copy(name.begin(), name.end(), text);
    names_.emplace_back(text, name.size());
}

void UniqueNameList::append(std::string_view name) {
    if (!seen_.contains(name)) {
        list_.append(name);
        seen_.insert(list_.names().back());
    }
}

}  // namespace python_host
