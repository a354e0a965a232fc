// How the language of the typed text writes what the engine offers.
#pragma once

#include <string>
#include <string_view>

namespace contextdata::completion {

/// The few rules that the engine needs. An object of static storage, as a rule: requests refer to it.
struct Language {
    /// A text as it stands in a string that `quote` opened, without the quotes; empty when no such string can hold it.
    /// Not null.
    std::u16string (*escaped)(std::u16string_view text, char16_t quote);
    /// What stands between the name of an argument and its value.
    std::u16string_view argumentMark;
};

/// A language in which a backslash takes their meaning from backslashes and quotes, and `=` gives an argument by name.
const Language& plainLanguage() noexcept;

}  // namespace contextdata::completion
