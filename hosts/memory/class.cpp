#include "hosts/memory/class.h"

#include <algorithm>

#include "hosts/memory/id_iterator.h"
#include "hosts/memory/node_iterator.h"
#include "hosts/memory/watch.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

namespace {

template <class Nodes>
void visitAll(Nodes& nodes, zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    for (auto& node : nodes) {
        visitor.visit(&node);
    }
}

}  // namespace

const std::vector<Class*>& Class::lineage() const {
    if (lineageGeneration_ != world.classGeneration) {
        lineage_.clear();
        appendLineage(lineage_);
        lineageGeneration_ = world.classGeneration;
    }
    return lineage_;
}

void Class::appendLineage(std::vector<Class*>& lineage) const {
    auto* self = const_cast<Class*>(this);
    if (std::find(lineage.begin(), lineage.end(), self) != lineage.end()) {
        return;
    }
    lineage.push_back(self);
    for (const Class* superclass : superclasses) {
        superclass->appendLineage(lineage);
    }
}

std::size_t Class::handlesAlive() const noexcept {
    std::size_t alive = references();
    const auto add = [&alive](const auto& nodes) {
        for (const Node& node : nodes) {
            alive += node.references();
        }
    };
    add(methods);
    add(enumerationMembers);
    for (const Property& property : properties) {
        alive += property.handlesAlive();
    }
    return alive;
}

const zelk::COSClassDefinition* Class::getDefinition(bool load) {
    if (entersToNull(Service::classGetDefinition, id)) {
        return nullptr;
    }
    // Every definition can be fetched here, so a caller that lets the host fetch one leaves its mark.
    defined = defined || load;
    if (!defined) {
        return nullptr;
    }
    // Opaque to everybody: only its being there counts.
    return reinterpret_cast<const zelk::COSClassDefinition*>(this);
}

zelk::COSInternedID Class::getID() const {
    enter(Service::classGetID, id);
    return id;
}

const char* Class::getName() const {
    enter(Service::classGetName, id);
    return id.c_str();
}

bool Class::isHidden() const {
    enter(Service::classIsHidden, id);
    return hidden;
}

bool Class::hasDynamicProperties() const {
    enter(Service::classHasDynamicProperties, id);
    return dynamicProperties;
}

bool Class::isSubclassOf(zelk::COSInternedID base) const {
    enter(Service::classIsSubclassOf, base);
    const std::vector<Class*>& classes = lineage();
    return std::any_of(classes.begin(), classes.end(), [base](const Class* cls) { return cls->id == base; });
}

zelk::COSIteratorPtr Class::findMethods(zelk::COSInternedID name) {
    if (entersToNull(Service::classFindMethods, name)) {
        return nullptr;
    }
    std::vector<Node*> found;
    for (Class* cls : lineage()) {
        if (std::find(cls->foreignMethodNames.begin(), cls->foreignMethodNames.end(), name) !=
            cls->foreignMethodNames.end()) {
            found.push_back(cls);
        }
        for (Method& method : cls->methods) {
            if (method.id == name) {
                found.push_back(&method);
            }
        }
    }
    return NodeIterator::over(std::move(found));
}

zelk::COSInterfacePtr Class::findProperty(zelk::COSInternedID name) {
    if (entersToNull(Service::classFindProperty, name)) {
        return nullptr;
    }
    for (Class* cls : lineage()) {
        for (Property& property : cls->properties) {
            if (property.id == name) {
                return &property;
            }
        }
    }
    return nullptr;
}

void Class::visitMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    enter(Service::classVisitMethods, id);
    for (Class* cls : lineage()) {
        visitAll(cls->methods, visitor);
    }
}

void Class::visitProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    enter(Service::classVisitProperties, id);
    for (Class* cls : lineage()) {
        visitAll(cls->properties, visitor);
    }
}

void Class::visitDeclaredMethods(zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    enter(Service::classVisitMethods, id);
    visitAll(methods, visitor);
}

void Class::visitDeclaredProperties(zelk::COSVisitor<zelk::COSInterface*>& visitor) {
    enter(Service::classVisitProperties, id);
    visitAll(properties, visitor);
}

zelk::COSIteratorPtr Class::getEnumerationMembers() {
    if (entersToNull(Service::classGetEnumerationMembers, id)) {
        return nullptr;
    }
    return NodeIterator::over(enumeration);
}

bool Class::withholdsOwnMembers() const {
    enter(Service::classWithholdsOwnMembers, id);
    return withholding;
}

zelk::COSIDIteratorPtr Class::getSuperclasses() {
    if (entersToNull(Service::classGetSuperclasses, id)) {
        return nullptr;
    }
    return IDIterator::over(superclassIDs);
}

namespace {

void fill(std::vector<std::string>& names, const std::vector<AttributeName>& attributes, bool includeHidden) {
    names.clear();
    for (const AttributeName& attribute : attributes) {
        if (includeHidden || !attribute.hidden) {
            names.push_back(attribute.name);
        }
    }
}

}  // namespace

void Class::getClassAttributeNames(bool includeHidden, std::vector<std::string>& names) const {
    enter(Service::classGetClassAttributeNames, id);
    fill(names, classAttributes, includeHidden);
}

void Class::getPropertyAttributeNames(bool includeHidden, std::vector<std::string>& names) const {
    enter(Service::classGetPropertyAttributeNames, id);
    fill(names, propertyAttributes, includeHidden);
}

void Class::getMethodAttributeNames(bool includeHidden, std::vector<std::string>& names) const {
    enter(Service::classGetMethodAttributeNames, id);
    fill(names, methodAttributes, includeHidden);
}

void Class::getEventAttributeNames(bool includeHidden, std::vector<std::string>& names) const {
    enter(Service::classGetEventAttributeNames, id);
    fill(names, eventAttributes, includeHidden);
}

}  // namespace memory_host
