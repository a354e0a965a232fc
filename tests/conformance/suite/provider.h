// What a host gives the conformance suite to ask about. Whoever joins a host to the suite implements `Provider` and
// `makeProvider`, with whatever the host has of its own, and leaves out what the host lacks: the suite then skips the
// tests that need it, and says so.
//
// The suite knows a host through `host/` alone. A provider builds the subjects and tells nothing but their names.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/array_library.h"

namespace conformance {

/// Values that the suite asks for, each with the content that it expects there.
enum class ValueKind {
    doubleScalar,  ///< 2.5
    doubleRow,     ///< 1, 2 and 3.5, in one row
    doubleMatrix,  ///< two rows and three columns
    emptyDouble,   ///< no element
    logicalTrue,   ///< one element
    logicalFalse,  ///< one element
    logicalRow,    ///< two elements, both true
    text,          ///< "some text", as a char row
    missingText,   ///< a text that is not there
    textMatrix,    ///< characters in several rows, which is no one text
    cell,          ///< the text "first", then the double 2.5
    structure,  ///< one element; the fields "alpha" (the double 2.5) and "beta" (the text "some text"), in this order
    functionHandle,  ///< any
    opaque,          ///< of neither a built-in kind nor the class system
    olderObject,     ///< of the older object system
};

struct MethodSketch {
    std::string name;
    bool isStatic = false;
};

/// A class as the suite wishes it. Its members are public and listed, its properties can be read and assigned.
struct ClassSketch {
    std::string name;                       ///< one word
    std::vector<std::string> superclasses;  ///< full names, as the host answered earlier wishes
    std::vector<MethodSketch> methods;
    std::vector<std::string> properties;
};

/// What is special about a class that the suite asks for.
enum class ClassTrait {
    undefined,  ///< known by name, but without a definition
    hidden,     ///< kept out of listings
    withholding,
    dynamicProperties,
};

/// What is special about a member that the suite asks for, and which texts come with it.
enum class MemberTrait {
    unlistableMethod,
    hiddenMethod,      ///< its visibility is not the shown one
    restrictedMethod,  ///< not public, and open to the classes of its list; texts: their names, in order
    privateMethod,     ///< of the class alone
    overloadedMethod,  ///< at least two methods bear the name
    constantProperty,  ///< never assigned
    readOnlyProperty,  ///< assigned by nobody, not even its class
    unlistableProperty,
    hiddenProperty,
    restrictedProperty,  ///< not public either way, readable for the classes of its list; texts: their names, in order
    typedProperty,       ///< of a declared type without validation; texts: its identifier
    untypedProperty,
    validatedProperty,   ///< texts: the class, then the dimensions, then "|", then the validators
    listedProperty,      ///< of a type whose values are texts; texts: the values, in order
    convertedProperty,   ///< of a type whose values all need converting; texts: the converted values, in order
    computedProperty,    ///< reading it runs code of its author
    storedProperty,      ///< objects hold a value of it
    attributedProperty,  ///< with an attribute of its author's that everybody sees; texts: the attribute's name
    hiddenEnumerationMember,
};

struct MemberSubject {
    std::string className;  ///< the class that declares it, by its full name
    std::string name;
    std::vector<std::string> texts = {};
};

/// A namespace with something in it, all by the names that the host shows in its listings.
struct NamespaceSubject {
    std::string name;
    std::vector<std::string> classes;
    std::vector<std::string> functions;
    std::vector<std::string> namespaces;
};

/// Code that knows a class by a name of its own.
struct ScopeSubject {
    std::u16string file;
    std::string name;  ///< denotes nothing outside of the file
    std::string fullName;
};

/// A value, and whether it still exists. The suite asks after it has given up its claim.
struct WatchedValue {
    qxUniqueArray value;
    std::function<bool()> isAlive;
};

/// An object, and a property of it that holds the double 2.5.
struct PropertySubject {
    qxUniqueArray object;
    std::string property;
};

struct ExpressionSubject {
    std::u16string good;  ///< gives the double 2.5
    std::u16string failing;
};

/// A method that the interpreter calls with the object alone, giving the double 2.5.
struct MethodCallSubject {
    qxUniqueArray object;
    std::string method;
};

struct FunctionCallSubject {
    std::string function;
    qxUniqueArray argument;
};

/// Everything here goes with the provider; one lives at a time, a fresh one for every test. What is answered empty
/// (null, false, no text, nothing) is a capability that the host lacks.
class Provider {
public:
    Provider() = default;
    Provider(const Provider&) = delete;
    Provider& operator=(const Provider&) = delete;
    virtual ~Provider() = default;

    virtual std::string hostName() const = 0;

    // Values.

    virtual qxUniqueArray value(ValueKind /*kind*/) { return nullptr; }
    virtual std::optional<WatchedValue> watchedValue() { return std::nullopt; }
    virtual std::optional<PropertySubject> objectWithProperty() { return std::nullopt; }
    /// A text beyond ASCII that the host's 8-bit encoding holds.
    virtual std::u16string textBeyondAscii() { return {}; }

    // Classes. Names are full and canonical.

    virtual std::string makeClass(const ClassSketch& /*sketch*/) { return {}; }
    virtual std::string makeEnumeration(const std::string& /*name*/, const std::vector<std::string>& /*members*/) {
        return {};
    }
    /// An object of a class that was made.
    virtual qxUniqueArray object(const std::string& /*className*/) { return nullptr; }
    virtual std::string classWith(ClassTrait /*trait*/) { return {}; }
    virtual std::optional<MemberSubject> memberWith(MemberTrait /*trait*/) { return std::nullopt; }
    /// An older form of a class's name, then the canonical one.
    virtual std::optional<std::pair<std::string, std::string>> legacyName() { return std::nullopt; }
    virtual std::optional<NamespaceSubject> filledNamespace() { return std::nullopt; }
    /// Two classes of which the first has precedence over the second, by their full names.
    virtual std::optional<std::pair<std::string, std::string>> precedence() { return std::nullopt; }

    // Names.

    virtual std::optional<ScopeSubject> scope() { return std::nullopt; }
    /// A name with a software-package qualification, then the same without it.
    virtual std::optional<std::pair<std::string, std::string>> qualifiedName() { return std::nullopt; }

    // Folders, all of them real ones of the machine.

    virtual bool hasFileSystem() { return false; }
    virtual bool workIn(const std::filesystem::path& /*folder*/) { return false; }
    /// Makes the search path exactly these, in this order.
    virtual bool searchIn(const std::vector<std::filesystem::path>& /*folders*/) { return false; }
    /// Adds an entry of private folders.
    virtual bool searchPrivatelyIn(const std::filesystem::path& /*folder*/) { return false; }

    // The interpreter.

    virtual bool setVariable(const std::string& /*name*/, ValueKind /*kind*/) { return false; }
    virtual std::optional<ExpressionSubject> expressions() { return std::nullopt; }
    /// An expression that the user's interrupt ends.
    virtual std::u16string interruptedExpression() { return {}; }
    /// A function with an argument on which the user's interrupt ends it.
    virtual std::optional<FunctionCallSubject> interruptedFunction() { return std::nullopt; }
    virtual std::optional<MethodCallSubject> callableMethod() { return std::nullopt; }
    /// A function that declares something about its arguments.
    virtual std::string declaringFunction() { return {}; }
    virtual std::u16string documentedBuiltin() { return {}; }
    /// Has the program print on its standard output or standard error.
    virtual bool print(const std::u16string& /*text*/, bool /*isError*/) { return false; }
    /// Has the debugger hold the program in a file; answers that.
    virtual std::u16string stopDebugger() { return {}; }

    // Java.

    /// A Java class and a static member of it.
    virtual std::optional<std::pair<std::string, std::string>> javaMember() { return std::nullopt; }
};

/// Defined by whoever joins a host to the suite. Called at the start of each test, on the interpreter thread.
std::unique_ptr<Provider> makeProvider();

}  // namespace conformance
