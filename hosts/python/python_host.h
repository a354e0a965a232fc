// What the live host offers to those who run inside the same Python process: the way between Python objects and
// host values, and the stamps that tell when a class has changed. The GIL is held by every caller.
#pragma once

#include <Python.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/array_library.h"
#include "host/interned.h"

/// Marks what the live host offers beside the host services.
#define CONTEXTDATA_PYTHON_HOST_API __attribute__((visibility("default")))

namespace python_host {

/// Makes what the host needs for good, which no later call may then lack. Called once, before anything else; throws a
/// host failure when it cannot be made.
CONTEXTDATA_PYTHON_HOST_API void prepare();

/// Puts the streams back that threads other than the caller's have diverted: after a fork they are not there to do it.
CONTEXTDATA_PYTHON_HOST_API void endDiversionsOfOtherThreads() noexcept;

/// The same, and they may divert none from now on: the interpreter ends, and stops them wherever they are. What cannot
/// be done without diverting a stream fails in those threads.
CONTEXTDATA_PYTHON_HOST_API void refuseDiversionsOfOtherThreads() noexcept;

/// The table of the loaded modules, borrowed; null when the interpreter has none, or has something else in its place.
CONTEXTDATA_PYTHON_HOST_API PyObject* loadedModules() noexcept;

/// The dictionary of the built-in names, borrowed for good.
CONTEXTDATA_PYTHON_HOST_API PyObject* builtinNames() noexcept;

/// A host value that stands for a live object, to which it holds a reference. `object` is not null.
CONTEXTDATA_PYTHON_HOST_API qxUniqueArray wrap(PyObject* object);

/// The object behind a value, borrowed from it; null for a value that the host made itself (a cell of names).
CONTEXTDATA_PYTHON_HOST_API PyObject* unwrap(const qxArray* value) noexcept;

/// Whether a plain str may be a name of the language.
CONTEXTDATA_PYTHON_HOST_API bool isIdentifier(PyObject* text) noexcept;

/// Whether an object is a function of a known kind: Python's own, built in, compiled, a universal function, a cached or
/// partial one. Told by its real type; an instance of a user's class with `__call__` is none.
CONTEXTDATA_PYTHON_HOST_API bool isKnownFunction(PyObject* object) noexcept;

/// The canonical id of a type in the class system. Never empty.
CONTEXTDATA_PYTHON_HOST_API zelk::COSInternedID classIdOf(PyTypeObject* type);

/// Whether a namespace's module is loaded: of one that is not, only its place on disk is known. Any UTF-8 text.
CONTEXTDATA_PYTHON_HOST_API bool isLoadedNamespace(std::string_view name);

/// The names with which an import statement may begin, as UTF-8, each once, in the order of the alphabet: the outermost
/// names among all namespaces. Of these at least the ones that begin, in whatever case, with what was typed, and
/// cheaply so, since folders of other names are not looked into. Imports nothing. Throws the interrupt.
CONTEXTDATA_PYTHON_HOST_API std::vector<std::string> outermostModules(std::string_view typed);

/// Says that the structure of a class (its members along the resolution order, their kinds and access) is what it
/// was whenever the same stamp was given for the same type. Documentation and annotated types are not covered.
struct StructureStamp {
    PyTypeObject* type = nullptr;  ///< identity only, not kept alive
    std::uint64_t version = 0;     ///< compared for equality only

    friend bool operator==(const StructureStamp&, const StructureStamp&) = default;
};

/// The present stamp of a type; empty when changes of it cannot be told, so that nothing may be cached.
CONTEXTDATA_PYTHON_HOST_API std::optional<StructureStamp> stampOf(PyTypeObject* type) noexcept;

/// Whether objects of a class tell by a `__dir__` that they have names beyond those of their class and attributes.
/// Holds for as long as the stamp of the class does.
CONTEXTDATA_PYTHON_HOST_API bool hasDirectoryHook(PyTypeObject* type);

/// The dictionary of an object's own attributes, borrowed from it; null when it has none. Its keys may be anything.
CONTEXTDATA_PYTHON_HOST_API PyObject* attributesOf(PyObject* object) noexcept;

/// The names that the `__dir__` of an object's class adds to those of the class, as UTF-8; own attributes may be among
/// them. Runs that hook, and no other code of the object's. Throws the interrupt.
CONTEXTDATA_PYTHON_HOST_API std::vector<std::string> directoryNamesOf(PyObject* object);

/// A number that no other state of the names has that an object adds to those of its class, as far as these are the
/// keys of one dictionary: of an object whose class has no directory hook. Nothing for an object that has no dictionary
/// (yet).
CONTEXTDATA_PYTHON_HOST_API std::optional<std::uint64_t> versionOfNames(PyObject* object) noexcept;

/// The attributes of an object's own whose names begin with one underscore, as UTF-8: what custom keeps from everybody,
/// and the private names as the compiler spells them (`_Class__name`). None for classes and modules. Runs no code of
/// the object's. Throws the interrupt.
CONTEXTDATA_PYTHON_HOST_API std::vector<std::string> concealedNamesOf(PyObject* object);

/// The debugger that holds the program (a `pdb.Pdb` that is in its interaction), or null when none does. The focus
/// is read from it when asked, since it moves up and down the stack. Keeps a reference.
CONTEXTDATA_PYTHON_HOST_API void setStoppedDebugger(PyObject* debugger) noexcept;

/// The class whose method runs in the frame in the debugger's focus, a function within a method counting as the method;
/// the class that declares the method, not the one of the object that it was called with. The empty handle when no
/// debugger holds the program, and when the frame runs no method of a class that can be found. Runs none of the
/// program's code, and leaves the frame's variables alone. May throw a host failure.
CONTEXTDATA_PYTHON_HOST_API zelk::COSInternedID classInFocus();

/// What reading and evaluating an expression on behalf of introspection may do.
enum class EvaluationPolicy : std::uint8_t {
    strict,   ///< names, and attributes that are plain data
    guarded,  ///< constant subscripts and literals too, methods, and getters that are known to run no code of a user
    full,     ///< whatever the interpreter does with the expression
};

/// The policy of the process. Guarded, unless somebody chooses another one.
/// @{
CONTEXTDATA_PYTHON_HOST_API EvaluationPolicy evaluationPolicy() noexcept;
CONTEXTDATA_PYTHON_HOST_API void setEvaluationPolicy(EvaluationPolicy policy) noexcept;
/// @}

/// For the life of the guard, the current workspace of this thread is what the dictionaries hold: the locals before the
/// globals. Without a guard it is the frame in the focus of a debugger that holds the program, else `__main__`. Guards
/// end in the reverse order of their beginning.
class CONTEXTDATA_PYTHON_HOST_API CurrentWorkspace {
public:
    /// What the current workspace is at this moment, held fast for those who look up several names of it.
    CurrentWorkspace();
    /// Keeps references. Null is a dictionary that is empty; so is what is no dictionary, and of a subclass only what
    /// it stores counts, as no method of it is called.
    explicit CurrentWorkspace(PyObject* locals, PyObject* globals = nullptr) noexcept;
    CurrentWorkspace(const CurrentWorkspace&) = delete;
    CurrentWorkspace& operator=(const CurrentWorkspace&) = delete;
    ~CurrentWorkspace();

    /// Borrowed. Null, or any object: only a dictionary counts.
    /// @{
    PyObject* locals() const noexcept { return locals_; }
    PyObject* globals() const noexcept { return globals_; }
    /// @}

private:
    PyObject* locals_;
    PyObject* globals_;
    const CurrentWorkspace* outer_;
};

}  // namespace python_host
