#include <iterator>

#include "contextdata/values.h"
#include "host/dispatcher.h"

std::unordered_set<std::u16string> getBuiltinFunctionNames() {
    std::vector<std::u16string> documented = Dispatcher::getDispatcher().getDocumentedBuiltins();
    return {std::move_iterator(documented.begin()), std::move_iterator(documented.end())};
}
