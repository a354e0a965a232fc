#include "tests/fuzz/model_world.h"

#include <utility>

#include "tests/fuzz/plain_utf.h"

namespace fuzz {

namespace {

using memory_host::ClassBuilder;
using memory_host::World;

void addMethod(ClassBuilder& cls, const ModelMethod& method) {
    cls.method(method.name).isStatic(method.isStatic).access(method.access).visibility(method.visibility);
    if (!method.isListable) {
        cls.unlistable();
    }
    for (const std::string& friendly : method.openTo) {
        cls.openTo(friendly);
    }
}

void addType(ClassBuilder& cls, const ModelType& type) {
    // A type without an identifier is one that only says something else.
    if (!type.id.empty()) {
        cls.dataType(type.id);
    }
    if (type.validation) {
        cls.validation(type.validation->className, type.validation->dimensions, type.validation->validators);
    }
    if (type.values) {
        cls.emptyValueList();
        for (const ModelTypeValue& value : *type.values) {
            value.isText ? cls.textValue(value.raw) : cls.rawValue(value.raw);
        }
    }
}

void addProperty(World& world, ClassBuilder& cls, const ModelProperty& property) {
    cls.property(property.name)
        .getAccess(property.getAccess)
        .setAccess(property.setAccess)
        .visibility(property.visibility);
    if (!property.isListable) {
        cls.unlistable();
    }
    if (property.isReadOnly) {
        cls.readOnly();
    }
    for (const std::string& friendly : property.readableBy) {
        cls.readableBy(friendly);
    }
    for (const std::string& friendly : property.writableBy) {
        cls.writableBy(friendly);
    }
    if (property.type) {
        addType(cls, *property.type);
    }
    if (property.extended) {
        cls.customGetter(property.extended->hasCustomGetter).stored(property.extended->isStored);
    }
    for (const ModelAttribute& attribute : property.attributes) {
        cls.attribute(attribute.name, attribute.typeID, attribute.hasValue ? world.logical(true) : nullptr);
    }
}

void addClass(World& world, const ModelClass& model) {
    ClassBuilder cls = world.cls(model.name);
    if (!model.isDefined) {
        cls.undefined();
    }
    if (model.isHidden) {
        cls.hidden();
    }
    if (model.withholds) {
        cls.withholdsOwnMembers();
    }
    if (model.hasDynamicProperties) {
        cls.hasDynamicProperties();
    }
    for (const ModelSuperclass& superclass : model.superclasses) {
        if (superclass.derives) {
            cls.derives(superclass.id);
        } else if (superclass.id.empty()) {
            cls.listsNullSuperclass();
        } else {
            cls.listsSuperclass(superclass.id);
        }
    }
    for (const ModelMethod& method : model.methods) {
        addMethod(cls, method);
    }
    for (const ModelProperty& property : model.properties) {
        addProperty(world, cls, property);
    }
    for (const ModelEnumerationMember& member : model.enumeration) {
        if (member.isForeign) {
            cls.foreignNodeInEnumeration();
            continue;
        }
        cls.enumerationMember(member.name);
        if (member.isHidden) {
            cls.hiddenMember();
        }
    }
    using Add = ClassBuilder& (ClassBuilder::*)(std::string_view, bool);
    constexpr Add families[] = {&ClassBuilder::classAttribute, &ClassBuilder::propertyAttribute,
                                &ClassBuilder::methodAttribute, &ClassBuilder::eventAttribute};
    for (std::size_t family = 0; family < 4; ++family) {
        for (const auto& [name, isHidden] : model.attributes[family]) {
            (cls.*families[family])(name, isHidden);
        }
    }
}

void addNamespace(World& world, const ModelNamespace& model) {
    memory_host::NamespaceBuilder space = world.ns(model.name);
    for (const std::string& cls : model.classes) {
        space.holdsClass(cls);
    }
    if (model.hasForeignNodes) {
        space.foreignNodes();
    }
    for (const ModelMethod& function : model.functions) {
        space.function(function.name).access(function.access);
        if (!function.isListable) {
            space.unlistable();
        }
    }
    for (const std::string& inner : model.namespaces) {
        space.holdsNamespace(inner);
    }
    if (model.fillsListsWhenRead) {
        space.fillsListsWhenRead();
    }
}

}  // namespace

std::string convertedText(const std::string& raw) { return "any " + raw; }

std::vector<FunctionScope*> build(const Model& model, World& world) {
    for (const ModelClass& cls : model.classes) {
        addClass(world, cls);
    }
    for (const auto& [older, name] : model.olderNames) {
        world.legacyName(older, name);
    }
    for (const ModelNamespace& space : model.namespaces) {
        addNamespace(world, space);
    }
    for (const std::string& type : model.convertibleTypes) {
        world.convertsToAny(type, convertedText);
    }
    std::vector<FunctionScope*> scopes;
    for (const ModelScope& scope : model.scopes) {
        scopes.push_back(world.scope(wide(scope.file)));
        for (const auto& [name, fullName] : scope.imports) {
            world.imports(scopes.back(), name, fullName);
        }
    }
    if (model.executing) {
        world.executing(scopes[*model.executing]);
    }
    if (model.stoppedIn) {
        world.debuggerStoppedAt(wide(*model.stoppedIn), 3, 4);
    }
    world.contextResolution(model.resolvesInContext);
    for (const auto& [first, second] : model.precedences) {
        world.precedes(first, second);
    }
    return scopes;
}

}  // namespace fuzz
