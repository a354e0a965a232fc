#include "frontends/completion/expression_value.h"

#include <string>

#include "contextdata/workspace.h"
#include "frontends/completion/ask.h"

namespace contextdata::completion {

qxSharedArray valueOfExpression(std::u16string_view expression) {
    if (expression.size() > longestExpression) {
        return {};
    }
    return unlessItFails([&] { return GetValueFromCurrentWorkspace(std::u16string(expression)); });
}

}  // namespace contextdata::completion
