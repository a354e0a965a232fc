// The whole way: from a text and a cursor to what may follow.
//
// The steps are public on their own (parse.h, subject.h, class_members.h, value_members.h, item.h), since a front
// end that knows when a class has changed keeps class answers between calls and asks only for the rest.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "frontends/completion/item.h"
#include "frontends/completion/language.h"
#include "frontends/completion/parse.h"
#include "frontends/completion/subject.h"

namespace contextdata::completion {

struct Request {
    std::u16string_view text;  ///< borrowed for the call
    std::size_t cursor = 0;    ///< in UTF-16 units
    std::u16string file;       ///< the file that the text is from; empty at a prompt
    /// The class in whose code the text stands; null for none. It is offered what only insiders may use as well.
    ZELKContextData::ResolvedClassID asker = {};
    /// Outlives the call.
    const Language& language = plainLanguage();
};

struct Completions {
    Refusal refusal = Refusal::none;  ///< why the text offers nothing; `none` also when its subject is unknown
    std::size_t start = 0;            ///< the range that a chosen name replaces, in UTF-16 units
    std::size_t end = 0;
    Items items;
};

/// What may stand at the cursor, sorted by name. Interpreter thread; the interrupt passes, and a source that the host
/// fails at contributes nothing.
///
/// Chains with constant subscripts, and the functions that calls name, are looked up in the host's current workspace,
/// by the rules that the host evaluates by; all else of the text is not evaluated at all. A front end whose variables
/// are not the host's makes them so for the call.
Completions complete(const Request& request, Workspace& workspace);

/// The part of what was typed that a chosen name replaces: of a path what follows the last folder, else the fragment.
std::u16string_view typedName(const ParsedText& parsed) noexcept;

/// The same for a text that was parsed: all that begins with what was typed, whatever is wanted. Empty where nothing
/// is.
Items itemsFor(const ParsedText& parsed, const Request& request, Workspace& workspace);

}  // namespace contextdata::completion
