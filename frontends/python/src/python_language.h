// How Python writes what the engine offers.
#pragma once

#include <span>
#include <string_view>

#include "frontends/completion/language.h"

namespace contextdata::python {

/// Texts are written for a string of one line without a prefix; line ends and other control characters as escapes.
const completion::Language& pythonLanguage() noexcept;

/// The reserved words, sorted. They name nothing else, whatever a namespace holds.
std::span<const std::u16string_view> pythonKeywords() noexcept;

}  // namespace contextdata::python
