#include "contextdata/other_object_systems.h"
#include "host/i18n.h"

void StructContextData::getStructFieldNames(const qxArray* value, std::vector<std::u16string>& names) {
    const fl::i18n::codecvt_ascii_to_ustring widening(false);
    const std::size_t count = qxGetNumberOfFields(value);
    for (std::size_t number = 0; number < count; ++number) {
        names.push_back(fl::i18n::to_ustring(qxGetFieldNameByNumber(value, number), widening));
    }
}
