// An expression that does nothing but lead to a value.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hosts/python/references.h"

namespace python_host {

struct Expression;

/// What follows a value: an attribute, or a subscript.
struct Step {
    std::string attribute;                  ///< UTF-8; empty for a subscript
    std::unique_ptr<Expression> subscript;  ///< null for an attribute
};

struct Expression {
    enum class Kind : std::uint8_t { name, constant, tuple, list, dictionary, slice };

    Kind kind = Kind::constant;
    std::string name;               ///< UTF-8
    Ref constant;                   ///< a number, a str, bytes, a truth value or None
    std::vector<Expression> items;  ///< of a display; keys and values by turns; start, stop and step of a slice
    std::vector<Step> steps;        ///< in the order in which they are taken
};

}  // namespace python_host
