// The name that a type was given, and whether that name leads back to it.
#pragma once

#include <Python.h>

#include <cstdint>
#include <string>
#include <vector>

#include "hosts/python/references.h"

namespace python_host {

/// Finds out a type's full name and remembers what the answer rests on, so that it is cheap to ask again.
class TypeName {
public:
    /// Whether what was read still stands. `type` is alive and the one of the last `read`.
    bool holdsFor(const PyTypeObject* type) const noexcept;

    /// Reads name and reachability anew.
    void read(PyTypeObject* type);

    /// "module.qualname"; the qualified name alone for a type that no longer says where it is from.
    std::string full() const;

    /// The last part of the qualified name begins with an underscore.
    bool isUnderscored() const;

    /// Whether the loaded module of that name, and the classes that the name goes through, lead to the type.
    bool isReachable() const noexcept { return reachable_; }

private:
    struct Witness {
        PyObject* dictionary;
        std::uint64_t version;
    };

    void readParts(PyTypeObject* type);
    bool leadsTo(PyTypeObject* type);
    void rely(PyObject* dictionary);

    Ref module_;     ///< a plain str; empty when the type names none
    Ref qualified_;  ///< a str, perhaps of a subclass
    std::vector<Ref> parts_;
    std::vector<Witness> witnesses_;
    bool reachable_ = false;
};

}  // namespace python_host
