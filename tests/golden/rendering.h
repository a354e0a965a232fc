// Answers of the engine as the text that golden files hold.
#pragma once

#include <string>

#include "frontends/completion/class_description.h"
#include "frontends/completion/complete.h"

namespace golden {

/// From "=>" on; every line ended.
std::string rendered(const contextdata::completion::Completions& completions);
std::string rendered(const contextdata::completion::ClassDescription& description);

}  // namespace golden
