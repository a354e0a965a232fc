// How Python writes what the engine offers.
#pragma once

#include "frontends/completion/language.h"

namespace contextdata::python {

/// Texts are written for a string of one line without a prefix; line ends and other control characters as escapes.
const completion::Language& pythonLanguage() noexcept;

}  // namespace contextdata::python
