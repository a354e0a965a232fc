// Names on their way into a cell.
#pragma once

#include <memory>
#include <memory_resource>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace python_host {

/// Texts in the order in which they were added. They are the user's data (columns, attributes), so they are not
/// interned for ever: all of them lie in one arena that goes with the list.
class NameList {
public:
    void append(std::string_view name);

    const std::vector<std::string_view>& names() const noexcept { return names_; }

private:
    std::unique_ptr<std::pmr::monotonic_buffer_resource> arena_ =
        std::make_unique<std::pmr::monotonic_buffer_resource>();
    std::vector<std::string_view> names_;
};

/// A list in which each name stands once.
class UniqueNameList {
public:
    void append(std::string_view name);
    NameList take() && { return std::move(list_); }

private:
    NameList list_;
    std::unordered_set<std::string_view> seen_;
};

}  // namespace python_host
