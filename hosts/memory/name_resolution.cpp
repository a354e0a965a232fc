// Names: a colon divides the software package, if any, from the dotted name of the class.
#include "host/name_resolution.h"

#include "hosts/memory/intern_table.h"
#include "hosts/memory/world_state.h"

namespace zelk::nameresolution {

using memory_host::enter;
using memory_host::Service;

namespace {

constexpr char packageMark = ':';

std::string fullNameOfClass(std::string_view name) {
    if (name.empty()) {
        return {};
    }
    const memory_host::Class* cls = memory_host::currentWorld().findClass(memory_host::intern(name));
    return cls == nullptr ? std::string() : std::string(cls->id.view());
}

}  // namespace

std::string omResolveAnyClass(const std::string& name, const FunctionScope* scope) {
    enter(Service::omResolveAnyClass, std::string_view(name));
    if (scope != nullptr) {
        if (const auto imported = scope->imports.find(name); imported != scope->imports.end()) {
            return fullNameOfClass(imported->second);
        }
    }
    return fullNameOfClass(name);
}

std::string getBaseClassNameFromFullName(std::string_view fullName) {
    enter(Service::getBaseClassNameFromFullName, fullName);
    return std::string(fullName.substr(fullName.find(packageMark) + 1));
}

bool isSoftwarePackageQualifiedName(std::string_view name) noexcept {
    return name.find(packageMark) != std::string_view::npos;
}

}  // namespace zelk::nameresolution
