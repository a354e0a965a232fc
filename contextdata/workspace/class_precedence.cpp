#include "contextdata/workspace.h"
#include "host/dispatcher.h"
#include "host/i18n.h"

namespace {

std::int32_t classNumber(ObjectSystem& objects, const std::u16string& name) {
    return objects.getClassNumber(fl::i18n::to_string(name, fl::i18n::codecvt_ustring_to_ascii(false)));
}

}  // namespace

std::int32_t GetClassPrecedence(const std::u16string& first, const std::u16string& second) {
    ObjectSystem& objects = Dispatcher::getDispatcher().getObjectSystem();
    const std::int32_t firstClass = classNumber(objects, first);
    const std::int32_t secondClass = classNumber(objects, second);
    if (objects.hasPrecedenceOver(firstClass, secondClass)) {
        return -1;
    }
    return objects.hasPrecedenceOver(secondClass, firstClass) ? 1 : 0;
}
