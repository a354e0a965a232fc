// What tells whether the structure of a type is still what it was.
#pragma once

#include <Python.h>

#include <cstdint>
#include <vector>

namespace python_host {

/// The interpreter gives a type a new version tag whenever the type or one of its bases changes. Tables that declare
/// members but may be changed in place (annotations, fields) are no part of that, and bring their own versions; so do
/// the dictionaries of the types, which code that got hold of one may change behind the interpreter's back.
class StructureKey {
public:
    /// Takes the tag that the type has now, and asks for one if it has none. A type whose changes cannot be told gets a
    /// key that never holds: a resolution order of its metaclass's making, dictionaries with foreign keys, no tag left.
    void takeTag(PyTypeObject* type) noexcept;

    /// Adds a dictionary to what the key covers; anything else is passed over. A table is covered after the dictionary
    /// of the type that holds it: as long as the one is unchanged, the other is alive.
    void cover(PyObject* table);

    bool isUsable() const noexcept { return tag_ != 0; }

    /// Whether nothing that the key covers has changed. `type` is alive and the one that the key was taken of.
    bool holdsFor(const PyTypeObject* type) const noexcept {
        // The types of the order are alive as long as the tag is unchanged, so the tag comes first.
        return tag_ != 0 && hasTag(type) && type->tp_version_tag == tag_ && tablesUnchanged();
    }

private:
    struct Table {
        PyObject* dictionary;
        std::uint64_t version;
    };

    static bool hasTag(const PyTypeObject* type) noexcept {
        return (type->tp_flags & Py_TPFLAGS_VALID_VERSION_TAG) != 0;
    }
    bool tablesUnchanged() const noexcept;

    std::uint32_t tag_ = 0;
    std::vector<Table> tables_;
};

}  // namespace python_host
