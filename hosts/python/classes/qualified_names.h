// Names of classes that their own name does not lead to.
//
// Several classes may have been given one name: made by a function again and again, or replaced while objects of the
// old one live on. Only the one that the name leads to is called by it; the others carry a number in front, as in
// "#2/__main__.f.<locals>.C".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace python_host {

std::string qualify(std::size_t number, std::string_view baseName);

/// The length of the qualification, its slash included; 0 for a name without one.
std::size_t qualificationLength(std::string_view name) noexcept;

}  // namespace python_host
