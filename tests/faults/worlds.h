// The worlds that the table's questions are asked in. Names are long enough, here and there, to take memory.
#pragma once

#include <string>

#include "tests/faults/scene.h"

namespace faults {

struct NamedWorld {
    const char* name;
    void (*build)(Scene& scene);
};

inline const std::u16string account = u"banking.retail.Account";
inline const std::u16string base = u"banking.retail.Foundation";
inline const std::u16string file = u"/project/transfers.k";

/// Nothing at all.
extern const NamedWorld nothing;
/// The class banking.retail.Account(banking.retail.Foundation) with members of every kind, and an object of it.
extern const NamedWorld bank;
/// The same class by name only: a class object without a definition.
extern const NamedWorld undefinedAccount;
/// banking.retail.Account with a constructor and a method.
extern const NamedWorld constructed;
/// banking.retail.Account with more methods, under longer names, than a listing has room for without asking for memory.
extern const NamedWorld crowded;
/// The class p:Leaf(Root), each with a method and a property, and attributes; an object of it and its information.
extern const NamedWorld leafAndRoot;

// Names are resolved in context, and there is `Shown`, an import of banking.retail.Account:
extern const NamedWorld importInFile;       ///< in the file that asks
extern const NamedWorld importInFocus;      ///< in the file in the debugger's focus
extern const NamedWorld importInExecution;  ///< in the code that runs

extern const NamedWorld debuggerStopped;
extern const NamedWorld noInterpreter;

// One member of banking.retail.Account, as a node, and who asks for it:
extern const NamedWorld plainMethod;
extern const NamedWorld hiddenMethod;
extern const NamedWorld guardedMethod;  ///< open to banking.retail.Teller, which asks
extern const NamedWorld plainProperty;
extern const NamedWorld hiddenProperty;
extern const NamedWorld guardedProperty;
extern const NamedWorld
    valuedProperty;  ///< with a list of values, an extended record and an attribute that says nothing
extern const NamedWorld flaggedProperty;    ///< with the attribute by which authors say that they have a getter
extern const NamedWorld validatedProperty;  ///< with a validation

/// The namespace bank with classes, functions and inner namespaces.
extern const NamedWorld namespaces;
extern const NamedWorld functionMetadata;
extern const NamedWorld scopedFunctionMetadata;  ///< where the feature switch is on
extern const NamedWorld precedence;

// A value:
extern const NamedWorld matrix;
extern const NamedWorld tallObject;  ///< of a class that has no methods after a dot
extern const NamedWorld cellOfTexts;
extern const NamedWorld cellOfNumbers;
extern const NamedWorld structure;
extern const NamedWorld foreignValue;           ///< opaque, and the interpreter knows its names
extern const NamedWorld foreignValueOfFewArts;  ///< opaque, and the interpreter knows nothing
extern const NamedWorld objectWithSize;
extern const NamedWorld objectWithCustomSize;
extern const NamedWorld objectWithNames;  ///< of banking.retail.Account, and its own "properties" function answers

// The workspace:
extern const NamedWorld workspace;  ///< a structure, an object, an array of structures, and functions that print
extern const NamedWorld javaClass;
extern const NamedWorld olderPackage;           ///< one that evaluation and "findpackage" know
extern const NamedWorld olderPackageInFolders;  ///< one that is a folder of the search path alone
extern const NamedWorld folders;
extern const NamedWorld documentedBuiltins;

}  // namespace faults
