#include "tests/fuzz/class_rules.h"

#include <algorithm>
#include <functional>
#include <set>

#include "tests/fuzz/plain_utf.h"

namespace fuzz {

ClassRules::ClassRules(const Model& model) : model_(model) {
    for (const ModelClass& cls : model.classes) {
        classes_[cls.name] = &cls;
    }
    for (const auto& [older, name] : model.olderNames) {
        classes_[older] = classes_.at(name);
    }
}

const ModelClass* ClassRules::find(const std::string& name) const {
    const auto found = classes_.find(name);
    return found == classes_.end() ? nullptr : found->second;
}

const ModelClass* ClassRules::findDefined(const std::string& name) const {
    const ModelClass* cls = find(name);
    return cls != nullptr && cls->isDefined ? cls : nullptr;
}

std::vector<const ModelClass*> ClassRules::lineage(const ModelClass& cls) const {
    std::vector<const ModelClass*> all;
    const std::function<void(const ModelClass&)> add = [&](const ModelClass& each) {
        if (std::find(all.begin(), all.end(), &each) != all.end()) {
            return;
        }
        all.push_back(&each);
        for (const ModelSuperclass& superclass : each.superclasses) {
            if (superclass.derives) {
                add(*find(superclass.id));
            }
        }
    };
    add(cls);
    return all;
}

bool ClassRules::derives(const ModelClass& cls, const std::string& baseName) const {
    const auto all = lineage(cls);
    return std::any_of(all.begin(), all.end(), [&](const ModelClass* each) { return each->name == baseName; });
}

const ModelMethod* ClassRules::findMethod(const ModelClass& cls, const std::string& name) const {
    for (const ModelClass* each : lineage(cls)) {
        for (const ModelMethod& method : each->methods) {
            if (method.name == name) {
                return &method;
            }
        }
    }
    return nullptr;
}

bool ClassRules::hasProperty(const ModelClass& cls, const std::string& name) const {
    for (const ModelClass* each : lineage(cls)) {
        for (const ModelProperty& property : each->properties) {
            if (property.name == name) {
                return true;
            }
        }
    }
    return false;
}

Wides ClassRules::methodNames(const ModelClass& cls, int staticSelection, int listableSelection) const {
    Wides names;
    if (!cls.isDefined || staticSelection < -1 || staticSelection > 1) {
        return names;
    }
    std::set<std::u16string> seen;
    for (const ModelClass* each : lineage(cls)) {
        const std::string constructor = each->name.substr(each->name.rfind('.') + 1);
        for (const ModelMethod& method : each->methods) {
            if (method.name == constructor) {
                continue;
            }
            bool accepted = method.access == 0;
            if (staticSelection != 0 && method.isStatic != (staticSelection == 1)) {
                accepted = false;
            }
            if (listableSelection != 0) {
                const bool passes =
                    (listableSelection == 1 && method.isListable) || (listableSelection == -1 && !method.isListable);
                accepted = accepted && passes;
            }
            const std::u16string name = wideAscii(method.name);
            if (seen.insert(name).second && accepted) {
                names.push_back(name);
            }
        }
    }
    return names;
}

Wides ClassRules::propertyNames(const ModelClass& cls, int getSelection, int setSelection, int constantSelection,
                                int listableSelection) const {
    Wides names;
    for (const ModelClass* each : lineage(cls)) {
        for (const ModelProperty& property : each->properties) {
            const bool isConstant = property.setAccess == 5;
            const bool side = constantSelection == 2 || (constantSelection == 0 && isConstant) ||
                              (constantSelection == 1 && !isConstant);
            const bool access =
                (setSelection == 0 && property.setAccess == 0) || (getSelection == 0 && property.getAccess == 0) ||
                (setSelection == 2 && getSelection == 2 && (property.setAccess == 0 || property.getAccess == 0));
            const bool flag = listableSelection == 2 || (listableSelection == 0 && !property.isListable) ||
                              (listableSelection == 1 && property.isListable);
            if (side && access && flag) {
                names.push_back(wideAscii(property.name));
            }
        }
    }
    return names;
}

Wides ClassRules::enumerationNames(const ModelClass& cls) const {
    Wides names;
    for (const ModelEnumerationMember& member : cls.enumeration) {
        if (!member.isForeign && !member.isHidden) {
            names.push_back(wideAscii(member.name));
        }
    }
    return names;
}

const ModelScope* ClassRules::scopeOf(const std::string& file) const {
    for (const ModelScope& scope : model_.scopes) {
        if (scope.file == file) {
            return &scope;
        }
    }
    return nullptr;
}

std::string ClassRules::resolvedIn(const std::string& file, const std::string& name) const {
    const ModelScope* scope = scopeOf(file);
    if (scope == nullptr) {
        scope = scopeOf(model_.stoppedIn.value_or(""));
    }
    if (scope == nullptr && model_.executing) {
        scope = &model_.scopes[*model_.executing];
    }
    return resolvedIn(scope, name);
}

std::string ClassRules::resolvedIn(const ModelScope* scope, const std::string& name) const {
    if (name.empty() || name.front() == '.') {
        return {};
    }
    if (!model_.resolvesInContext) {
        return name;
    }
    std::string meant = name;
    if (scope != nullptr) {
        if (const auto imported = scope->imports.find(name); imported != scope->imports.end()) {
            meant = imported->second;
        }
    }
    const ModelClass* cls = find(meant);
    return cls == nullptr ? "" : cls->name;
}

std::string ClassRules::baseName(const std::string& fullName) {
    const std::size_t mark = fullName.find(':');
    return mark == std::string::npos ? fullName : fullName.substr(mark + 1);
}

}  // namespace fuzz
