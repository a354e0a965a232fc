// What has to be answered about the records of a class: its tree of superclasses, its methods and properties with what
// it inherits, and its attributes. Written from the description of the rules.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "tests/fuzz/class_rules.h"

namespace fuzz {

/// One class with the tree of its superclasses.
struct RuleTree {
    std::string id;  ///< empty for an unknown class
    std::u16string name;
    std::vector<RuleTree> superclasses;
};

/// Name, class that declares it, whether it is static.
using RuleMethod = std::tuple<std::u16string, std::u16string, bool>;

struct RuleProperty {
    std::u16string name;
    std::u16string typeName;
    Wides sizes;
    Wides validators;
    bool isReadOnly = false;
    bool hasCustomGetter = false;
    bool isStored = true;
    std::int32_t valueKind = 0;
    Wides values;
};

struct MemberOptions {
    std::vector<std::int32_t> accessibility = {0};
    std::vector<std::int32_t> accessKinds = {0, 1};  ///< of properties
    const RuleTree* asker = nullptr;
    int context = 3;  ///< of methods
    bool includeConstructors = false;
    bool includeOperators = false;
    bool includeHidden = false;
};

class RecordRules {
public:
    RecordRules(const Model& model, const ClassRules& classes) : model_(model), classes_(classes) {}

    /// By an identity, which is taken as it stands; by the class of an object.
    RuleTree treeOf(const std::string& id) const;
    RuleTree treeOfObject(const ModelClass& cls) const;

    std::vector<RuleMethod> methods(const RuleTree& tree, const MemberOptions& options) const;
    std::vector<RuleProperty> properties(const RuleTree& tree, const MemberOptions& options) const;

    /// The four families of attribute names.
    std::vector<std::set<std::u16string>> attributes(const RuleTree& tree, bool includeHidden) const;

    static bool isA(const RuleTree& tree, const std::string& id);
    static bool isA(const RuleTree& tree, const std::u16string& name);
    static Wides names(const RuleTree& tree);

    static bool isOfferedBeforeDot(const std::string& className);
    static bool isOperator(const std::string& name);

private:
    std::vector<RuleTree> superclassesOf(const std::string& id, std::vector<std::string> above) const;
    const ModelClass* ownMembersOf(const RuleTree& tree) const;
    RuleProperty recordOf(const ModelProperty& property) const;

    const Model& model_;
    const ClassRules& classes_;
};

}  // namespace fuzz
