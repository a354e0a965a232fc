// Parameters as they stand in a text.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace python_host {

/// Without the blanks and line ends around it.
std::string_view withoutBlanks(std::string_view text);

/// Whether a text is a name in letters of ASCII.
bool isPlainParameterName(std::string_view text);

/// Follows brackets and quotes through defaults, which may hold commas of their own.
class Nesting {
public:
    /// False when the text cannot be balanced any more.
    bool pass(char c);
    bool isOutside() const { return quote_ == '\0' && closings_.empty(); }

private:
    void passInText(char c);

    std::string closings_;
    char quote_ = '\0';
    bool isEscaped_ = false;
};

/// The parts between commas that stand in no bracket and no quote, without blanks around them; a comma may stand behind
/// the last one. Nothing when brackets or quotes are not balanced. The parts lie in `text`.
std::optional<std::vector<std::string_view>> splitAtCommas(std::string_view text);

}  // namespace python_host
