#include "tests/fuzz/record_rules.h"

#include <algorithm>

#include "tests/fuzz/model_world.h"
#include "tests/fuzz/plain_utf.h"

namespace fuzz {

namespace {

bool holds(const std::vector<std::int32_t>& codes, std::int32_t code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

/// Whether the asker is, or derives from, one of the classes.
bool isOpenTo(const RuleTree* asker, const std::vector<std::string>& classes) {
    return asker != nullptr && std::any_of(classes.begin(), classes.end(),
                                           [&](const std::string& cls) { return RecordRules::isA(*asker, cls); });
}

/// The options for superclasses: without the first private code.
MemberOptions withoutPrivate(MemberOptions options) {
    const auto found = std::find(options.accessibility.begin(), options.accessibility.end(), 2);
    if (found != options.accessibility.end()) {
        options.accessibility.erase(found);
    }
    return options;
}

bool isOfferedAt(int context, const std::string& className) {
    return context == 3 || context == 2 || (context == 1 && RecordRules::isOfferedBeforeDot(className));
}

bool isConstructor(const std::string& method, const std::string& className) {
    return className == method || className.ends_with("." + method);
}

}  // namespace

bool RecordRules::isOfferedBeforeDot(const std::string& className) {
    static const std::set<std::string> excluded = {
        "double", "single",  "int8", "uint8",  "int16", "unit16",          "in32",  "uint32", "int64",
        "uint64", "logical", "char", "struct", "cell",  "function_handle", "handle"};
    return !excluded.contains(className);
}

bool RecordRules::isOperator(const std::string& name) {
    static const std::set<std::string> operators = {
        "plus",     "uplus",    "minus",     "uminus",  "mtimes",     "times",     "mrdivide", "rdivide",
        "mldivide", "ldivide",  "mpower",    "power",   "ctranspose", "transpose", "lt",       "le",
        "gt",       "ge",       "eq",        "ne",      "and",        "or",        "not",      "colon",
        "subsref",  "subsasgn", "subsindex", "horzcat", "vertcat"};
    return operators.contains(name);
}

RuleTree RecordRules::treeOf(const std::string& id) const {
    if (id.empty()) {
        return {};
    }
    return {id, wide(ClassRules::baseName(id)), superclassesOf(id, {})};
}

RuleTree RecordRules::treeOfObject(const ModelClass& cls) const {
    // Only the class that its name leads to, and only when it is defined, has objects here.
    if (classes_.findDefined(cls.name) == nullptr) {
        return {};
    }
    return {cls.name, wide(cls.name), superclassesOf(cls.name, {})};
}

/// A class that stands above itself is not entered a second time.
std::vector<RuleTree> RecordRules::superclassesOf(const std::string& id, std::vector<std::string> above) const {
    std::vector<RuleTree> trees;
    const ModelClass* cls = classes_.find(id);
    if (cls == nullptr) {
        return trees;
    }
    above.push_back(id);
    for (const ModelSuperclass& listed : cls->superclasses) {
        const ModelClass* superclass = classes_.find(listed.id);
        const bool isCircle =
            superclass != nullptr && std::find(above.begin(), above.end(), superclass->name) != above.end();
        if (superclass == nullptr || isCircle) {
            trees.emplace_back();
            continue;
        }
        trees.push_back(
            {superclass->name, wide(ClassRules::baseName(superclass->name)), superclassesOf(superclass->name, above)});
    }
    return trees;
}

bool RecordRules::isA(const RuleTree& tree, const std::string& id) {
    return tree.id == id || std::any_of(tree.superclasses.begin(), tree.superclasses.end(),
                                        [&](const RuleTree& superclass) { return isA(superclass, id); });
}

bool RecordRules::isA(const RuleTree& tree, const std::u16string& name) {
    return tree.name == name || std::any_of(tree.superclasses.begin(), tree.superclasses.end(),
                                            [&](const RuleTree& superclass) { return isA(superclass, name); });
}

Wides RecordRules::names(const RuleTree& tree) {
    Wides all;
    if (tree.name.empty()) {
        return all;
    }
    all.push_back(tree.name);
    for (const RuleTree& superclass : tree.superclasses) {
        const Wides more = names(superclass);
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

const ModelClass* RecordRules::ownMembersOf(const RuleTree& tree) const {
    const ModelClass* cls = classes_.findDefined(tree.id);
    // Members declared by a class of another name than the one that is asked are not its own.
    return cls != nullptr && !cls->withholds && cls->name == tree.id ? cls : nullptr;
}

std::vector<RuleMethod> RecordRules::methods(const RuleTree& tree, const MemberOptions& options) const {
    constexpr const char16_t* marker = u"ostrel.mixin.internal.indexing.DisallowCompletionOfDotMethodNames";
    if (tree.id.empty() || !isOfferedAt(options.context, tree.id) || (options.context == 2 && isA(tree, marker))) {
        return {};
    }
    std::vector<RuleMethod> collected;
    std::set<std::u16string> hidden;
    if (const ModelClass* cls = ownMembersOf(tree)) {
        for (const ModelMethod& method : cls->methods) {
            const bool isAccessible =
                holds(options.accessibility, method.access) || isOpenTo(options.asker, method.openTo);
            if (!isAccessible) {
                continue;
            }
            if (!options.includeHidden && method.visibility != 1) {
                hidden.insert(wide(method.name));
            } else if (isOfferedAt(options.context, cls->name) &&
                       (options.includeConstructors || !isConstructor(method.name, cls->name)) &&
                       (options.includeOperators || !isOperator(method.name))) {
                collected.emplace_back(wide(method.name), wide(cls->name), method.isStatic);
            }
        }
    }
    std::vector<RuleMethod> all;
    for (const RuleTree& superclass : tree.superclasses) {
        for (RuleMethod& inherited : methods(superclass, withoutPrivate(options))) {
            if (options.includeHidden || !hidden.contains(std::get<0>(inherited))) {
                all.push_back(std::move(inherited));
            }
        }
    }
    all.insert(all.end(), collected.begin(), collected.end());
    return all;
}

RuleProperty RecordRules::recordOf(const ModelProperty& property) const {
    RuleProperty record;
    record.name = wide(property.name);
    record.isReadOnly = property.isReadOnly;
    record.isStored = !property.extended || property.extended->isStored.value_or(true);
    record.hasCustomGetter = property.extended && property.extended->hasCustomGetter;
    const auto marked = std::find_if(property.attributes.begin(), property.attributes.end(),
                                     [](const ModelAttribute& attribute) { return attribute.name == "RVXGetSet"; });
    if (marked != property.attributes.end() && marked->typeID == "logical scalar" && marked->hasValue) {
        record.hasCustomGetter = true;
    }
    if (!property.type) {
        return record;
    }
    const ModelType& type = *property.type;
    std::string typeName;
    if (type.validation) {
        typeName = type.validation->className;
        std::transform(type.validation->dimensions.begin(), type.validation->dimensions.end(),
                       std::back_inserter(record.sizes), [](const std::string& text) { return wide(text); });
        std::transform(type.validation->validators.begin(), type.validation->validators.end(),
                       std::back_inserter(record.validators), [](const std::string& text) { return wide(text); });
    }
    record.typeName = wide(typeName.empty() ? type.id : typeName);
    if (record.validators.empty() && type.values && model_.convertibleTypes.contains(type.id)) {
        for (const ModelTypeValue& value : *type.values) {
            record.values.push_back(wide(value.isText ? value.raw : convertedText(value.raw)));
            record.valueKind = std::max(record.valueKind, value.isText ? 1 : 2);
        }
    }
    return record;
}

std::vector<RuleProperty> RecordRules::properties(const RuleTree& tree, const MemberOptions& options) const {
    std::vector<RuleProperty> collected;
    std::set<std::u16string> overriding;
    if (const ModelClass* cls = tree.id.empty() ? nullptr : ownMembersOf(tree)) {
        for (const ModelProperty& property : cls->properties) {
            const bool isAccessible =
                (holds(options.accessKinds, 0) && holds(options.accessibility, property.getAccess)) ||
                (holds(options.accessKinds, 1) && holds(options.accessibility, property.setAccess)) ||
                isOpenTo(options.asker, property.readableBy) || isOpenTo(options.asker, property.writableBy);
            if (!isAccessible) {
                continue;
            }
            // What is hidden is not reported, but takes the place of what is inherited all the same.
            overriding.insert(wide(property.name));
            if (options.includeHidden || property.visibility == 1) {
                collected.push_back(recordOf(property));
            }
        }
    }
    std::vector<RuleProperty> all;
    for (const RuleTree& superclass : tree.superclasses) {
        for (RuleProperty& inherited : properties(superclass, withoutPrivate(options))) {
            if (!overriding.contains(inherited.name)) {
                all.push_back(std::move(inherited));
            }
        }
    }
    all.insert(all.end(), collected.begin(), collected.end());
    return all;
}

std::vector<std::set<std::u16string>> RecordRules::attributes(const RuleTree& tree, bool includeHidden) const {
    std::vector<std::set<std::u16string>> families(4);
    if (tree.name.empty()) {
        return families;
    }
    const ModelClass* cls = classes_.find(tree.id);
    for (std::size_t family = 0; family < 4; ++family) {
        if (cls != nullptr) {
            for (const auto& [name, isHidden] : cls->attributes[family]) {
                if (includeHidden || !isHidden) {
                    families[family].insert(wideAscii(name));
                }
            }
        }
    }
    for (const RuleTree& superclass : tree.superclasses) {
        const auto inherited = attributes(superclass, includeHidden);
        for (std::size_t family = 0; family < 4; ++family) {
            families[family].insert(inherited[family].begin(), inherited[family].end());
        }
    }
    return families;
}

}  // namespace fuzz
