// What has to be answered about the classes of a model: the rules, written from their description and not from the
// library, plainly and slowly.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/fuzz/model.h"

namespace fuzz {

using Wides = std::vector<std::u16string>;

class ClassRules {
public:
    explicit ClassRules(const Model& model);

    /// The class that a name denotes, older forms included; null for none.
    const ModelClass* find(const std::string& name) const;
    const ModelClass* findDefined(const std::string& name) const;

    /// The class and all it derives from, depth first, each once.
    std::vector<const ModelClass*> lineage(const ModelClass& cls) const;
    bool derives(const ModelClass& cls, const std::string& baseName) const;

    /// The first method of a name that a class has or inherits; null for none.
    const ModelMethod* findMethod(const ModelClass& cls, const std::string& name) const;
    bool hasProperty(const ModelClass& cls, const std::string& name) const;

    // Lists of names for everybody.

    Wides methodNames(const ModelClass& cls, int staticSelection, int listableSelection) const;
    Wides propertyNames(const ModelClass& cls, int getSelection, int setSelection, int constantSelection,
                        int listableSelection) const;
    Wides enumerationNames(const ModelClass& cls) const;

    /// The identity of a name as code of a file sees it; empty for null.
    std::string resolvedIn(const std::string& file, const std::string& name) const;
    /// The same for the code of a scope; null for none.
    std::string resolvedIn(const ModelScope* scope, const std::string& name) const;

    /// A class name without its software package.
    static std::string baseName(const std::string& fullName);

private:
    const ModelScope* scopeOf(const std::string& file) const;

    const Model& model_;
    std::map<std::string, const ModelClass*> classes_;
};

}  // namespace fuzz
