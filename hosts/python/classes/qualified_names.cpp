#include "hosts/python/classes/qualified_names.h"

#include "host/name_resolution.h"

namespace python_host {

std::string qualify(std::size_t number, std::string_view baseName) {
    std::string name = '#' + std::to_string(number) + '/';
    name += baseName;
    return name;
}

std::size_t qualificationLength(std::string_view name) noexcept {
    if (!name.starts_with('#')) {
        return 0;
    }
    const std::size_t end = name.find_first_not_of("0123456789", 1);
    const bool isQualified = end != std::string_view::npos && end > 1 && name[end] == '/' && end + 1 < name.size();
    return isQualified ? end + 1 : 0;
}

}  // namespace python_host

std::string zelk::nameresolution::getBaseClassNameFromFullName(std::string_view fullName) {
    return std::string(fullName.substr(python_host::qualificationLength(fullName)));
}

bool zelk::nameresolution::isSoftwarePackageQualifiedName(std::string_view name) noexcept {
    return python_host::qualificationLength(name) != 0;
}
