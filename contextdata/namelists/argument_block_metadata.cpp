#include "contextdata/argument_block_metadata.h"

#include <utility>

#include "host/dispatcher.h"
#include "host/feature.h"
#include "host/function_metadata.h"
#include "host/i18n.h"

namespace ZELKContextData {

ArgumentBlockMetadata getArgumentBlockMetadata(const std::u16string& context, const std::u16string& functionName) {
    const FunctionScope* caller =
        ComponentFeature::IsOn() ? Dispatcher::getDispatcher().getFunctionScope(context) : nullptr;
    const fl::i18n::codecvt_ustring_to_string narrowing(true);
    auto [first, second, scope] = omGetFunctionMetadata(fl::i18n::to_string(functionName, narrowing), caller);
    return {std::move(first), std::move(second), scope};
}

}  // namespace ZELKContextData
