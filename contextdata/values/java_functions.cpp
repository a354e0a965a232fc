#include "contextdata/other_object_systems.h"
#include "host/i18n.h"

bool IsJavaFunction(const std::u16string& qualifiedName) {
    const std::string name = fl::i18n::to_string(qualifiedName, fl::i18n::codecvt_ustring_to_ascii(false));
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos || dot == 0) {
        return false;
    }
    const qxUniqueArray cls = qxCreateClassArray(name.substr(0, dot).c_str());
    if (!cls) {
        return false;
    }
    const qxUniqueArray member = qxFindClassMember(cls.get(), name.substr(dot + 1).c_str());
    return member && qxIsA(member.get(), "java");
}
