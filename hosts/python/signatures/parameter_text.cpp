#include "hosts/python/signatures/parameter_text.h"

#include <algorithm>

namespace python_host {

namespace {

constexpr std::string_view blanks = " \t\n";

bool isLetter(char c) { return c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool isPlainParameterName(std::string_view text) {
    return !text.empty() && isLetter(text.front()) &&
           std::all_of(text.begin(), text.end(), [](char c) { return isLetter(c) || isDigit(c); });
}

bool Nesting::pass(char c) {
    if (quote_ != '\0') {
        passInText(c);
        return true;
    }
    if (c == '\'' || c == '"') {
        quote_ = c;
    } else if (const std::size_t opening = std::string_view("([{").find(c); opening != std::string_view::npos) {
        closings_.push_back(")]}"[opening]);
    } else if (c == ')' || c == ']' || c == '}') {
        if (closings_.empty() || closings_.back() != c) {
            return false;
        }
        closings_.pop_back();
    }
    return true;
}

void Nesting::passInText(char c) {
    if (isEscaped_) {
        isEscaped_ = false;
    } else if (c == '\\') {
        isEscaped_ = true;
    } else if (c == quote_) {
        quote_ = '\0';
    }
}

std::optional<std::vector<std::string_view>> splitAtCommas(std::string_view text) {
    std::vector<std::string_view> parts;
    Nesting nesting;
    std::size_t begin = 0;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (text[position] == ',' && nesting.isOutside()) {
            parts.push_back(withoutBlanks(text.substr(begin, position - begin)));
            begin = position + 1;
        } else if (!nesting.pass(text[position])) {
            return std::nullopt;
        }
    }
    if (!nesting.isOutside()) {
        return std::nullopt;
    }
    // A comma may stand behind the last parameter.
    if (const std::string_view last = withoutBlanks(text.substr(begin)); !last.empty()) {
        parts.push_back(last);
    }
    return parts;
}

}  // namespace python_host
