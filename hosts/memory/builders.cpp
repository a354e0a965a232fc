// What the class and namespace builders do.
#include <iterator>

#include "hosts/memory/intern_table.h"
#include "hosts/memory/world.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

ClassBuilder& ClassBuilder::derives(std::string_view superclass) {
    class_.superclasses.push_back(&class_.world.classNamed(superclass));
    ++class_.world.classGeneration;
    return *this;
}

ClassBuilder& ClassBuilder::hidden() {
    class_.hidden = true;
    return *this;
}

ClassBuilder& ClassBuilder::undefined() {
    class_.defined = false;
    return *this;
}

ClassBuilder& ClassBuilder::hasDynamicProperties() {
    class_.dynamicProperties = true;
    return *this;
}

ClassBuilder& ClassBuilder::method(std::string_view name) {
    class_.methods.emplace_back(&class_, intern(name));
    member_ = NodeKind::method;
    return *this;
}

ClassBuilder& ClassBuilder::property(std::string_view name) {
    class_.properties.emplace_back(&class_, intern(name));
    member_ = NodeKind::property;
    return *this;
}

ClassBuilder& ClassBuilder::constant(std::string_view name) {
    return property(name).setAccess(zelk::constantSetAccess);
}

ClassBuilder& ClassBuilder::enumerationMember(std::string_view name) {
    class_.enumeration.push_back(&class_.enumerationMembers.emplace_back(&class_, intern(name)));
    return *this;
}

ClassBuilder& ClassBuilder::foreignNodeInEnumeration() {
    class_.enumeration.push_back(&class_);
    return *this;
}

ClassBuilder& ClassBuilder::isStatic(bool value) {
    class_.methods.back().isStaticMethod = value;
    return *this;
}

ClassBuilder& ClassBuilder::access(std::int32_t code) {
    class_.methods.back().access = code;
    return *this;
}

ClassBuilder& ClassBuilder::getAccess(std::int32_t code) {
    class_.properties.back().getCode = code;
    return *this;
}

ClassBuilder& ClassBuilder::setAccess(std::int32_t code) {
    class_.properties.back().setCode = code;
    return *this;
}

ClassBuilder& ClassBuilder::unlistable() {
    if (member_ == NodeKind::method) {
        class_.methods.back().listable = false;
    } else {
        class_.properties.back().listable = false;
    }
    return *this;
}

ClassBuilder& ClassBuilder::dataType(std::string_view id) {
    class_.properties.back().dataType = new DataType(intern(id));
    return *this;
}

ClassBuilder& ClassBuilder::hiddenMember() {
    class_.enumerationMembers.back().hidden = true;
    return *this;
}

ClassBuilder& ClassBuilder::answers(std::string_view methodName, ValueFunction method) {
    class_.callableMethods.insert_or_assign(std::string(methodName), std::move(method));
    return *this;
}

zelk::COSClass* ClassBuilder::object() const noexcept { return &class_; }

NamespaceBuilder& NamespaceBuilder::holdsClass(std::string_view fullName) {
    namespace_.classes.push_back(&namespace_.world.classNamed(fullName));
    return *this;
}

NamespaceBuilder& NamespaceBuilder::function(std::string_view name) {
    namespace_.functions.emplace_back(nullptr, intern(name));
    return *this;
}

NamespaceBuilder& NamespaceBuilder::access(std::int32_t code) {
    namespace_.functions.back().access = code;
    return *this;
}

NamespaceBuilder& NamespaceBuilder::unlistable() {
    namespace_.functions.back().listable = false;
    return *this;
}

NamespaceBuilder& NamespaceBuilder::holdsNamespace(std::string_view fullName) {
    namespace_.namespaces.push_back(&namespace_.world.namespaceNamed(fullName));
    return *this;
}

}  // namespace memory_host
