#include "hosts/memory/value_making.h"

#include <string>
#include <utility>

namespace memory_host {

qxUniqueArray makeValue(qxClassID id, std::string_view className, std::vector<std::size_t> dimensions) {
    return qxUniqueArray(new qxArray(id, std::string(className), std::move(dimensions)));
}

qxUniqueArray makeText(std::u16string_view text) {
    qxUniqueArray value = makeValue(qxClassID::character, "char", {text.empty() ? 0U : 1U, text.size()});
    value->textKind = TextKind::present;
    value->text = text;
    return value;
}

qxUniqueArray makeLogical(bool value) {
    qxUniqueArray made = makeValue(qxClassID::logical, "logical", {1, 1});
    made->doubles = {value ? 1.0 : 0.0};
    return made;
}

qxUniqueArray sharedClaim(const qxArray* value) noexcept {
    if (value != nullptr) {
        intrusive_ptr_add_ref(value);
    }
    return qxUniqueArray(const_cast<qxArray*>(value));
}

}  // namespace memory_host
