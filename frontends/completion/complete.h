// The whole way: from a text and a cursor to what may follow.
//
// The steps are public on their own (parse.h, subject.h, class_members.h, value_members.h, item.h), since a front
// end that knows when a class has changed keeps class answers between calls and asks only for the rest.
#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>

#include "frontends/completion/item.h"
#include "frontends/completion/language.h"
#include "frontends/completion/parse.h"
#include "frontends/completion/rules.h"
#include "frontends/completion/subject.h"

namespace contextdata::completion {

/// What somebody typed, and who asks. What it borrows has to stand during the call alone.
struct Request {
    std::u16string_view text;  ///< borrowed for the call
    std::size_t cursor = 0;    ///< in UTF-16 units
    std::u16string file = {};  ///< the file that the text is from; empty at a prompt
    /// The class in whose code the text stands; null for none. It is offered what only insiders may use as well.
    ZELKContextData::ResolvedClassID asker = {};
    /// Outlives the call.
    const Language& language = plainLanguage();
    /// What the front end holds that is named without a dot: variables, words of the language. In any order; of one
    /// name, the first counts. Borrowed for the call.
    std::span<const Item> names = {};
    /// The answer is ordered by rank, and names that fit less closely are forgiven (ranking.h).
    bool isRanked = false;
    std::size_t limit = std::numeric_limits<std::size_t>::max();  ///< the most items of an answer
    Rules rules = {};  ///< by which the host gives the value of what stands before a dot
};

/// An answer. A plain value; it borrows nothing of the request.
struct Completions {
    Refusal refusal = Refusal::none;  ///< why the text offers nothing; `none` also when its subject is unknown
    std::size_t start = 0;            ///< the range that a chosen name replaces, in UTF-16 units
    std::size_t end = 0;              ///< behind the last unit of that range: the cursor
    /// Sorted by name, or by rank; the arguments of a call always before the names.
    Items items;
    std::size_t leftOut = 0;  ///< how many more there are than the limit allows
    std::u16string reason;    ///< why there are none, for people; empty when there are some
};

/// What may stand at the cursor. Interpreter thread; the interrupt passes, and a source that the host fails at
/// contributes nothing.
///
/// Chains with constant subscripts, literals, and the functions that calls name, are looked up in the host's current
/// workspace, by the rules that the host evaluates by; all else of the text is not evaluated at all, unless the rules
/// of the request let code run. A front end whose variables are not the host's makes them so for the call.
Completions complete(const Request& request, Workspace& workspace);

/// The part of what was typed that a chosen name replaces: of a path what follows the last folder, else the fragment.
std::u16string_view typedName(const ParsedText& parsed) noexcept;

/// The same for a text that was parsed: all that fits what was typed, whatever is wanted. Empty where nothing is.
Items itemsFor(const ParsedText& parsed, const Request& request, Workspace& workspace);

/// Of a text where keys are wanted: the value that has them; empty when there is none, or none that may be had.
qxSharedArray keyedValueOf(const ParsedText& parsed, const Request& request, Workspace& workspace);

/// The keys of that value, which is not null, that fit what was typed: what `itemsFor` gives for such a text, for those
/// who have the value already. Finding it may run code, and nobody wants that twice.
Items keysFor(const ParsedText& parsed, const Request& request, const qxSharedArray& value);

}  // namespace contextdata::completion
