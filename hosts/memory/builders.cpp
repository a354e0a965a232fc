// What the class and namespace builders do.
#include "hosts/memory/builders.h"

#include <utility>

#include "hosts/memory/intern_table.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

namespace {

ExtendedProperty& extendedOf(Class& cls) {
    std::optional<ExtendedProperty>& extended = cls.properties.back().extended;
    return extended ? *extended : extended.emplace();
}

std::vector<TypeValue>& valuesOf(Class& cls) {
    std::optional<std::vector<TypeValue>>& values = cls.properties.back().type().values;
    return values ? *values : values.emplace();
}

}  // namespace

ClassBuilder& ClassBuilder::derives(std::string_view superclass) {
    class_.superclasses.push_back(&class_.world.classNamed(superclass));
    ++class_.world.classGeneration;
    return listsSuperclass(superclass);
}

ClassBuilder& ClassBuilder::listsSuperclass(std::string_view id) {
    class_.superclassIDs.push_back(intern(id));
    return *this;
}

ClassBuilder& ClassBuilder::listsNullSuperclass() {
    class_.superclassIDs.emplace_back();
    return *this;
}

ClassBuilder& ClassBuilder::withholdsOwnMembers() {
    class_.withholding = true;
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

ClassBuilder& ClassBuilder::foreignNodeAmongMethods(std::string_view name) {
    class_.foreignMethodNames.push_back(intern(name));
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

ClassBuilder& ClassBuilder::visibility(std::int32_t code) {
    (member_ == NodeKind::method ? class_.methods.back().visibility : class_.properties.back().visibility) = code;
    return *this;
}

ClassBuilder& ClassBuilder::openTo(std::string_view cls) {
    class_.methods.back().accessList.push_back(intern(cls));
    return *this;
}

ClassBuilder& ClassBuilder::readableBy(std::string_view cls) {
    class_.properties.back().getAccessList.push_back(intern(cls));
    return *this;
}

ClassBuilder& ClassBuilder::writableBy(std::string_view cls) {
    class_.properties.back().setAccessList.push_back(intern(cls));
    return *this;
}

ClassBuilder& ClassBuilder::readOnly() {
    class_.properties.back().readOnly = true;
    return *this;
}

ClassBuilder& ClassBuilder::customGetter(bool value) {
    extendedOf(class_).customGetter = value;
    return *this;
}

ClassBuilder& ClassBuilder::stored(std::optional<bool> whether) {
    extendedOf(class_).stored = whether;
    return *this;
}

ClassBuilder& ClassBuilder::attribute(std::string_view name, std::string_view typeID, qxUniqueArray value) {
    boost::intrusive_ptr<DataType> type;
    if (!typeID.empty()) {
        type = new DataType;
        type->id = intern(typeID);
    }
    class_.properties.back().attributes.emplace_back(intern(name), std::move(type), std::move(value));
    return *this;
}

ClassBuilder& ClassBuilder::dataType(std::string_view id) {
    class_.properties.back().type().id = intern(id);
    return *this;
}

ClassBuilder& ClassBuilder::validation(std::string_view className, std::vector<std::string> dimensions,
                                       std::vector<std::string> validators) {
    Validation& validation = class_.properties.back().type().validation.emplace();
    validation.className = className;
    validation.dimensions = std::move(dimensions);
    validation.validators = std::move(validators);
    return *this;
}

ClassBuilder& ClassBuilder::textValue(std::string_view text) {
    valuesOf(class_).emplace_back(std::string(text), true);
    return *this;
}

ClassBuilder& ClassBuilder::rawValue(std::string_view raw) {
    valuesOf(class_).emplace_back(std::string(raw), false);
    return *this;
}

ClassBuilder& ClassBuilder::emptyValueList() {
    valuesOf(class_).clear();
    return *this;
}

ClassBuilder& ClassBuilder::classAttribute(std::string_view name, bool hidden) {
    class_.classAttributes.push_back({std::string(name), hidden});
    return *this;
}

ClassBuilder& ClassBuilder::propertyAttribute(std::string_view name, bool hidden) {
    class_.propertyAttributes.push_back({std::string(name), hidden});
    return *this;
}

ClassBuilder& ClassBuilder::methodAttribute(std::string_view name, bool hidden) {
    class_.methodAttributes.push_back({std::string(name), hidden});
    return *this;
}

ClassBuilder& ClassBuilder::eventAttribute(std::string_view name, bool hidden) {
    class_.eventAttributes.push_back({std::string(name), hidden});
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
    namespace_.functionNodes.push_back(&namespace_.functions.emplace_back(nullptr, intern(name)));
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

NamespaceBuilder& NamespaceBuilder::foreignNodes() {
    Node* stranger = &namespace_.strangers.emplace_back(nullptr, intern("stranger"));
    namespace_.classes.push_back(stranger);
    namespace_.functionNodes.push_back(stranger);
    namespace_.namespaces.push_back(stranger);
    return *this;
}

NamespaceBuilder& NamespaceBuilder::fillsListsWhenRead() {
    namespace_.classesFilled = false;
    namespace_.functionsFilled = false;
    namespace_.namespacesFilled = false;
    return *this;
}

NamespaceBuilder& NamespaceBuilder::holdsNamespace(std::string_view fullName) {
    namespace_.namespaces.push_back(&namespace_.world.namespaceNamed(fullName));
    return *this;
}

}  // namespace memory_host
