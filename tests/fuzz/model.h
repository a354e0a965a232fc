// A world as plain data: what the random worlds are made of, and what the rules beside it are answered from.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/fuzz/input.h"

namespace fuzz {

struct ModelMethod {
    std::string name;
    bool isStatic = false;
    bool isListable = true;
    std::int32_t access = 0;
    std::int32_t visibility = 1;
    std::vector<std::string> openTo = {};
};

struct ModelValidation {
    std::string className;
    std::vector<std::string> dimensions;
    std::vector<std::string> validators;
};

/// A text, or something raw that has to be converted to become one.
struct ModelTypeValue {
    std::string raw;
    bool isText = true;
};

struct ModelType {
    std::string id;  ///< perhaps empty
    std::optional<ModelValidation> validation;
    std::optional<std::vector<ModelTypeValue>> values;
};

struct ModelAttribute {
    std::string name;
    std::string typeID;  ///< empty for none
    bool hasValue = false;
};

struct ModelExtended {
    bool hasCustomGetter = false;
    std::optional<bool> isStored;
};

struct ModelProperty {
    std::string name;
    bool isListable = true;
    bool isReadOnly = false;
    std::int32_t getAccess = 0;
    std::int32_t setAccess = 0;
    std::int32_t visibility = 1;
    std::vector<std::string> readableBy;
    std::vector<std::string> writableBy;
    std::optional<ModelType> type;
    std::optional<ModelExtended> extended;
    std::vector<ModelAttribute> attributes;
};

struct ModelEnumerationMember {
    std::string name;
    bool isHidden = false;
    bool isForeign = false;  ///< a node of another kind
};

/// A superclass as a class lists it.
struct ModelSuperclass {
    std::string id;  ///< empty for the null id; perhaps of no class
    bool derives = false;
};

struct ModelClass {
    std::string name;
    bool isDefined = true;
    bool isHidden = false;
    bool withholds = false;
    bool hasDynamicProperties = false;
    std::vector<ModelSuperclass> superclasses;
    std::vector<ModelMethod> methods;
    std::vector<ModelProperty> properties;
    std::vector<ModelEnumerationMember> enumeration;
    std::vector<std::pair<std::string, bool>>
        attributes[4];  ///< of classes, properties, methods, events; hidden or not
};

struct ModelNamespace {
    std::string name;
    std::vector<std::string> classes;
    std::vector<ModelMethod> functions;
    std::vector<std::string> namespaces;
    bool fillsListsWhenRead = false;
    bool hasForeignNodes = false;
};

struct ModelScope {
    std::string file;
    std::map<std::string, std::string> imports;
};

struct Model {
    std::vector<ModelClass> classes;                              ///< each name once
    std::vector<std::pair<std::string, std::string>> olderNames;  ///< older form -> name of a class
    std::vector<ModelNamespace> namespaces;                       ///< each name once, inner ones included
    std::set<std::string> convertibleTypes;
    std::vector<ModelScope> scopes;
    std::optional<std::size_t> executing;  ///< the scope that runs
    std::optional<std::string> stoppedIn;  ///< the file in the debugger's focus
    bool resolvesInContext = false;
    std::set<std::pair<std::string, std::string>> precedences;
};

/// Makes a world of the decisions that a case holds.
Model makeModel(Input& input);

/// The names that models are made of, and some that they never hold: what is worth asking for.
const std::vector<std::string>& classNames();
const std::vector<std::string>& memberNames();
const std::vector<std::string>& namespaceNames();
const std::vector<std::string>& fileNames();

}  // namespace fuzz
