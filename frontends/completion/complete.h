// The whole way: from a text and a cursor to what may follow.
//
// The steps are public on their own (parse.h, subject.h, class_members.h, value_members.h, item.h), since a front
// end that knows when a class has changed keeps class answers between calls and asks only for the rest.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "frontends/completion/item.h"
#include "frontends/completion/parse.h"
#include "frontends/completion/subject.h"

namespace contextdata::completion {

struct Request {
    std::u16string_view text;  ///< borrowed for the call
    std::size_t cursor = 0;    ///< in UTF-16 units
    std::u16string file;       ///< the file that the text is from; empty at a prompt
    /// The class in whose code the text stands; null for none. It is offered what only insiders may use as well.
    ZELKContextData::ResolvedClassID asker = {};
};

struct Completions {
    Refusal refusal = Refusal::none;  ///< why the text offers nothing; `none` also when its subject is unknown
    std::size_t start = 0;            ///< the range that a chosen name replaces, in UTF-16 units
    std::size_t end = 0;
    Items items;
};

/// What may follow the text up to the cursor, sorted by name. Nothing of the text is run. Interpreter thread; the
/// interrupt passes, and a source that the host fails at contributes nothing.
Completions complete(const Request& request, Workspace& workspace);

}  // namespace contextdata::completion
