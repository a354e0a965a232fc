// Reading the text of an expression.
#pragma once

#include <optional>
#include <string_view>

#include "hosts/python/evaluation/expression.h"

namespace python_host {

/// The expression of a UTF-8 text; nothing when the text is anything but names, literals and displays followed by
/// attributes and subscripts (a call, an operator, a statement), when it is nested too deeply, and when it is longer
/// than anything that a person would have completed. Takes time in proportion to the text. Leaves no Python error.
std::optional<Expression> parseExpression(std::string_view text);

}  // namespace python_host
