#include "contextdata/introspection.h"
#include "host/i18n.h"

namespace ZELKIntrospection {

const std::u16string getClassName(const qxArray* value) {
    return fl::i18n::to_ustring(qxGetClassName(value), fl::i18n::codecvt_ascii_to_ustring(false));
}

const std::u16string getConstructorName(const std::u16string& className) {
    const std::size_t lastDot = className.rfind(u'.');
    return lastDot == std::u16string::npos ? className : className.substr(lastDot + 1);
}

}  // namespace ZELKIntrospection
