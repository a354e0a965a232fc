#include "hosts/python/members/member_access.h"

#include "hosts/python/classes/qualified_names.h"
#include "hosts/python/python_text.h"

namespace python_host {

namespace {

constexpr std::string_view privateMark = "__";

std::string_view lastPartOf(std::string_view className) {
    className.remove_prefix(qualificationLength(className));
    return className.substr(className.rfind('.') + 1);
}

/// A class whose name is all underscores leaves private names as they are.
std::string manglingFor(std::string_view shortName) {
    const std::size_t start = shortName.find_first_not_of('_');
    return start == std::string_view::npos ? std::string() : '_' + std::string(shortName.substr(start));
}

bool isPrivateName(std::string_view name) noexcept {
    return name.starts_with(privateMark) && !name.ends_with(privateMark);
}

}  // namespace

MemberAccess::MemberAccess(std::string_view className)
    : shortName_(lastPartOf(className)), mangling_(manglingFor(shortName_)) {}

std::int32_t MemberAccess::of(std::string_view name) const noexcept {
    if (!startsWithUnderscore(name) || isSpecialName(name)) {
        return zelk::publicAccess;
    }
    return isPrivateName(name) || isMangled(name) ? zelk::privateAccess : protectedAccess;
}

bool MemberAccess::isMangled(std::string_view name) const noexcept {
    return !mangling_.empty() && name.starts_with(mangling_) && isPrivateName(name.substr(mangling_.size()));
}

}  // namespace python_host
