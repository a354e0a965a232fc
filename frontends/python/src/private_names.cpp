#include "frontends/python/src/private_names.h"

#include <algorithm>

namespace contextdata::python {

namespace {

/// `__name`, as against `__name__`, which belongs to the language.
bool isPrivateForm(std::u16string_view name) { return name.starts_with(u"__") && !name.ends_with(u"__"); }

std::u16string prefixFor(std::u16string_view className) {
    const std::u16string_view shortName = className.substr(className.rfind(u'.') + 1);
    const std::size_t begin = shortName.find_first_not_of(u'_');
    return begin == std::u16string_view::npos ? std::u16string() : u'_' + std::u16string(shortName.substr(begin));
}

}  // namespace

PrivateNames::PrivateNames(std::u16string_view className) : prefix_(prefixFor(className)) {}

bool PrivateNames::holds(std::u16string_view name) const noexcept {
    return !prefix_.empty() && name.starts_with(prefix_) && isPrivateForm(name.substr(prefix_.size()));
}

std::u16string PrivateNames::asTyped(std::u16string_view name) const {
    return std::u16string(name.substr(prefix_.size()));
}

bool PrivateNames::isRespelled(std::u16string_view name) const noexcept {
    return !prefix_.empty() && isPrivateForm(name);
}

bool isPrivateToOneOf(const completion::Lineage& lineage, std::u16string_view name) {
    return std::any_of(lineage.classes().begin(), lineage.classes().end(),
                       [&](const auto& cls) { return PrivateNames(cls->getClass()).holds(name); });
}

}  // namespace contextdata::python
