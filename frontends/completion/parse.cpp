#include "frontends/completion/parse.h"

#include <algorithm>
#include <array>

#include "frontends/completion/scanner.h"

namespace contextdata::completion {

const char* textOf(Refusal refusal) noexcept {
    constexpr std::array<const char*, 7> texts = {
        "",
        "no name is being typed",
        "in a string",
        "in a comment",
        "in or after a number",
        "after what has to be evaluated first",
        "after a dot with no name before it",
    };
    return texts[static_cast<std::size_t>(refusal)];
}

ParsedText parse(std::u16string_view text, std::size_t cursor) {
    return Scanner(text.substr(0, std::min(cursor, text.size()))).scan();
}

}  // namespace contextdata::completion
