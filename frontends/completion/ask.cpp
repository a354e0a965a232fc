#include "frontends/completion/ask.h"

#include "contextdata/values.h"
#include "host/interpreter.h"

namespace contextdata::completion {

std::vector<std::u16string> ask(const qxArray* value, const char* function) {
    return unlessItFails([&] {
        qxArray* output = nullptr;
        inCallFcn(1, &output, 1, &value, function);
        const qxUniqueArray answer(output);
        std::vector<std::u16string> texts;
        getStringsFromQxarray(answer.get(), texts);
        return texts;
    });
}

}  // namespace contextdata::completion
