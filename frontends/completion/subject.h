// What stands before the dot, and how a chain of names leads to it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "contextdata/resolved_class_id.h"
#include "host/array_library.h"

namespace contextdata::completion {

/// The variables that a front end can see.
class Workspace {
public:
    virtual ~Workspace() = default;
    /// The value of a variable, empty when there is none of that name. Interpreter thread.
    virtual qxSharedArray find(const std::u16string& name) = 0;
};

/// The names of a chain with dots between them.
std::u16string dotted(std::span<const std::u16string_view> chain);

/// What a chain of names leads to, or fails to. A plain value that shares the host's.
struct Subject {
    /// What sort of thing stands before the dot.
    enum class Nature {
        nothing,      ///< the chain leads nowhere, or was refused on the way
        object,       ///< a value that stands for itself
        classItself,  ///< a class: by its name, or by a value that denotes it
        space,        ///< a namespace, likewise
    };

    Nature nature = Nature::nothing;       ///< which of the other members count
    qxSharedArray value;                   ///< the value at the end of the chain; empty for a bare name
    ZELKContextData::ResolvedClassID cls;  ///< of a class
    std::u16string space;                  ///< the name of a namespace
};

// The steps from a chain of names to a subject.
//
// The first name is a variable of the workspace, and each further one a property of the value so far: a value that the
// host does not give ends the search, as whatever else the names might mean, they mean that value. Only when there is
// no such variable, the whole chain is taken for the name of a class, as code in `contextFile` would see it, or of a
// namespace. The interrupt passes; other host failures refuse. Interpreter thread.

/// `follow` reads one property after the other; empty as soon as one is refused.
qxSharedArray follow(qxSharedArray root, std::span<const std::u16string_view> segments);
/// `describe` asks a value, which may be empty, whether it denotes a class or a namespace.
Subject describe(qxSharedArray value);
/// `named` takes a chain for the name of a class or namespace.
Subject named(std::span<const std::u16string_view> chain, const std::u16string& contextFile);

}  // namespace contextdata::completion
