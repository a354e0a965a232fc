// A world for one test: classes, namespaces, values, functions, scopes and a debugger, all in memory.
//
//     World world;
//     world.cls("bank.Account").derives("handle").method("deposit").property("balance").constant("limit");
//     const qxUniqueArray account = world.object("bank.Account");
//
// While a world stands, the host services of the process answer from it; there is one at a time. Everything that
// it builds goes with it, save interned names. Building calls no service. One thread at a time.
#pragma once

#include <boost/weak_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/array_library.h"
#include "host/error_mode.h"
#include "host/evaluation.h"
#include "host/streams.h"
#include "hosts/memory/builders.h"
#include "hosts/memory/call_journal.h"
#include "hosts/memory/export.h"
#include "hosts/memory/fault_plan.h"

class FunctionScope;

namespace memory_host {

struct WorldState;

/// What the interpreter was asked to evaluate, and how.
struct Evaluation {
    std::u16string expression;  ///< the text, unchanged
    int outputCount;            ///< for how many results there was room
    bool flag;                  ///< as it was passed
    inEvaluationSource source;  ///< on whose behalf
};

/// Evaluates in place of the host's own evaluator; may throw.
using Evaluator = std::function<inExecutionStatus(const Evaluation& asked, qxArray** outputs)>;

/// What the host knows while it stands. The file says how it is used.
class CONTEXTDATA_MEMORY_HOST_API World {
public:
    World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    /// Reports every value, node handle and iterator that is still held, through `setLeakReporter`.
    ~World();

    // Classes and names.

    /// The class of a full name, made with a definition when it is new. A colon divides the software package, if
    /// any, from the dotted name.
    ClassBuilder cls(std::string_view fullName);
    /// The namespace of a full name, made when it is new.
    NamespaceBuilder ns(std::string_view name);
    /// An older form of a class's name.
    void legacyName(std::string_view older, std::string_view fullName);
    /// A conversion from a data type to "any", which gets the raw text of a value; it may throw.
    void convertsToAny(std::string_view typeID, std::function<std::string(const std::string& raw)> conversion);

    // Values. Each is owned by the caller; an element that is handed over is owned by what it went into.

    /// Without elements given, all are 0.
    qxUniqueArray doubles(std::vector<std::size_t> dimensions, std::vector<double> elements = {});
    /// A scalar.
    qxUniqueArray number(double value) { return doubles({1, 1}, {value}); }
    /// A logical scalar.
    qxUniqueArray logical(bool value);
    /// One text, as a row of characters.
    qxUniqueArray charRow(std::u16string_view text);
    /// A char array of several rows, which is no single text.
    qxUniqueArray charMatrix(std::size_t rows, std::size_t columns);
    /// One text as a single element, an object of the class "string"; and one that is missing.
    /// @{
    qxUniqueArray stringScalar(std::u16string_view text);
    qxUniqueArray missingString();
    /// @}
    /// A row cell; a null element stays unset.
    qxUniqueArray cellOf(std::vector<qxUniqueArray> elements);
    /// A row cell of char rows.
    qxUniqueArray cell(std::initializer_list<std::u16string_view> texts);
    /// A structure without fields.
    qxUniqueArray structure(std::vector<std::size_t> dimensions = {1, 1});
    /// A handle to no particular function.
    qxUniqueArray functionHandle();
    /// An object of a class of the world, or an array of such objects, none of whose properties has a value yet.
    qxUniqueArray object(std::string_view className, std::vector<std::size_t> dimensions = {1, 1});
    /// A value of another object system, such as Java's; the class is a mere name.
    qxUniqueArray opaque(std::string_view className);
    /// An object of the older object system; the class is a mere name.
    qxUniqueArray olderObject(std::string_view className);
    /// A value of any class id, for questions about ids alone.
    qxUniqueArray valueOf(qxClassID id);
    /// An object of the class system that bears an id of another kind, as foreign values may.
    qxUniqueArray objectOfID(qxClassID id, std::string_view className);

    /// Gives an object (any element of it) a property's value.
    void setProperty(const qxUniqueArray& object, std::string_view name, qxUniqueArray value);
    /// Gives one element of it a property's value.
    void setProperty(const qxUniqueArray& object, std::size_t index, std::string_view name, qxUniqueArray value);

    /// Gives one element of a structure, or of an object of the older object system, a field's value; the field is
    /// added to all elements when it is new.
    void setField(const qxUniqueArray& structure, std::string_view name, qxUniqueArray value, std::size_t index = 0);

    /// Changes the shape of a value that others hold already, as code that runs meanwhile might.
    void reshape(qxArray* value, std::vector<std::size_t> dimensions);

    /// Ends the temporary scope: values read from properties and never taken out of it are gone.
    void endTemporaryScope();

    // The interpreter.

    /// A function that can be called by name with one value; it may throw, and may answer null.
    void function(std::string_view name, std::function<qxUniqueArray(const qxArray* argument)> body);
    /// A function, built before, that reports an error after it has written its result.
    void functionFails(std::string_view name);
    /// Neither a debugger to ask nor anything that evaluates.
    void noInterpreter();
    /// Has something else than the host's own language evaluate.
    void evaluatedBy(Evaluator evaluator);
    /// All that was evaluated, in order.
    const std::vector<Evaluation>& evaluations() const noexcept;
    /// A variable of the current workspace.
    void variable(std::string_view name, qxUniqueArray value);
    /// What the program prints, for functions that do so.
    /// @{
    void print(std::u16string_view text);
    void printError(std::u16string_view text);
    /// @}
    /// What reached the person at the prompt.
    /// @{
    const std::u16string& shown() const noexcept;
    const std::u16string& shownErrors() const noexcept;
    /// @}
    /// How many sinks lie on the two streams together.
    std::size_t diversions() const noexcept;
    /// The sinks that were pushed on either stream, in order; those that are gone have expired.
    const std::vector<boost::weak_ptr<OutputSink>>& sinks() const noexcept;
    /// What becomes of errors at this moment, and how a test has it begin.
    /// @{
    qxErrorMode errorMode() const noexcept;
    void errorMode(qxErrorMode mode) noexcept;
    /// @}
    /// From then on the debugger holds the program in a file, until it runs on.
    /// @{
    void debuggerStoppedAt(std::u16string_view file, std::int32_t position1 = 0, std::int32_t position2 = 0);
    void debuggerRuns();
    /// @}

    // The dispatcher.

    /// A new scope for the code of a file; the world owns it.
    FunctionScope* scope(std::u16string_view file);
    /// In code of the scope, `name` denotes the class `fullName`.
    void imports(FunctionScope* scope, std::string_view name, std::string_view fullName);
    /// The scope of the function that runs; null at the prompt.
    void executing(FunctionScope* scope);
    /// What the dispatcher answers from then on, repeats included.
    void documentedBuiltins(std::vector<std::u16string> names);
    /// What a function declares about its arguments, in a scope or, with null, everywhere.
    void functionMetadata(std::string_view name, FunctionScope* scope, qxUniqueArray first, qxUniqueArray second);
    /// Methods of the first class run when values of both meet.
    void precedes(std::string_view cls, std::string_view other);

    // Folders: real ones, by their paths in the file system of the machine.

    /// The folder in which the session works; nowhere at first.
    void workingFolder(std::u16string path);
    /// One more entry at the end of the search path.
    void searchPathEntry(std::u16string path, std::int32_t kind = 0);

    // Other object systems.

    /// A static member of a Java class; `memberClass` is the class of what a look-up of it finds.
    void javaMember(std::string_view className, std::string_view memberName, std::string_view memberClass = "java");

    /// The feature switch, off at first.
    void contextResolution(bool on);

    // What tests look at.

    /// The calls of services, from the birth of the world.
    CallJournal& journal() noexcept;
    /// Which calls fail; none at first.
    FaultPlan& faults() noexcept;
    /// Calls `observer` whenever the service is called, before it does anything, so that a test can look at the world,
    /// or change it, in the midst of things. It must not throw.
    void whenCalled(Service service, std::function<void()> observer);
    /// Stops journal, faults and observers, so that services cost what they cost.
    void unwatched() noexcept;
    /// Values that were made and are not gone, those inside of others and of variables included.
    std::size_t valuesAlive() const noexcept;
    /// Handles to nodes and iterators that are held at this moment.
    std::size_t handlesAlive() const noexcept;

private:
    std::unique_ptr<WorldState> state_;
};

/// Who is told of what outlives a world; by default the process says so on standard error and aborts.
CONTEXTDATA_MEMORY_HOST_API void setLeakReporter(std::function<void(const std::string& report)> reporter);

}  // namespace memory_host
