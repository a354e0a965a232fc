#include "frontends/completion/expression_value.h"

#include <algorithm>
#include <string>
#include <utility>

#include "contextdata/values.h"
#include "contextdata/workspace.h"
#include "frontends/completion/ask.h"
#include "frontends/completion/characters.h"
#include "frontends/completion/subject.h"

namespace contextdata::completion {

namespace {

/// What the interpreter writes, whatever becomes of the call that writes it.
struct Output {
    Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    ~Output() { qxDestroyArray(value); }

    qxArray* value = nullptr;
};

/// As against a literal, which may begin with letters.
bool beginsWithName(std::u16string_view expression) {
    const auto* nameEnd = std::find_if_not(expression.begin(), expression.end(), isNameUnit);
    return isNameStart(expression.front()) && (nameEnd == expression.end() || !isQuote(*nameEnd));
}

/// What the host's evaluation makes of a text, without a walk before.
qxSharedArray evaluated(const std::u16string& expression) {
    return unlessItFails([&]() -> qxSharedArray {
        Output output;
        if (!EvalcExpSuccessful(expression, 1, &output.value, false) || output.value == nullptr) {
            return {};
        }
        return makeSharedPtr(std::exchange(output.value, nullptr));
    });
}

}  // namespace

bool isTooLong(std::span<const std::u16string_view> chain) noexcept {
    return !chain.empty() &&
           static_cast<std::size_t>(&chain.back().back() - &chain.front().front()) >= longestExpression;
}

qxSharedArray valueOfExpression(std::u16string_view expression, const Rules& rules) {
    if (expression.empty() || expression.size() > longestExpression) {
        return {};
    }
    const std::u16string text(expression);
    if (!rules.walks || rules.runsCode || !beginsWithName(expression)) {
        return evaluated(text);
    }
    qxSharedArray walked = unlessItFails([&] { return GetValueFromCurrentWorkspace(text); });
    // The walk ends at values of several elements, which may have members and subscripts all the same.
    return walked ? walked : evaluated(text);
}

qxSharedArray valueAtEnd(const qxSharedArray& root, std::span<const std::u16string_view> chain, const Rules& rules) {
    if (chain.size() == 1) {
        return root;
    }
    qxSharedArray value = rules.walks ? follow(root, chain.subspan(1)) : qxSharedArray();
    if (value || (rules.walks && !rules.runsCode)) {
        return value;
    }
    return isTooLong(chain) ? qxSharedArray() : evaluated(dotted(chain));
}

}  // namespace contextdata::completion
