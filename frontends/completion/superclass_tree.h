// How a class descends from others.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/interned.h"

namespace contextdata::completion {

/// One superclass in the tree of a class.
struct Superclass {
    std::u16string name;                   ///< full, without package qualification
    std::vector<Superclass> superclasses;  ///< its own direct ones
    bool isRepeated = false;               ///< its superclasses stand where the class was met first
    bool isCut = false;                    ///< its superclasses lie deeper than the tree goes
};

/// How deep a tree goes.
inline constexpr std::size_t deepestSuperclass = 100;

/// The direct superclasses of a class, each with its own. Every class shows its superclasses once, so that the tree is
/// as large as the links between the classes are many. Ends also where classes derive from each other in a circle. A
/// class at which the host fails shows none; the interrupt passes.
std::vector<Superclass> superclassTree(zelk::COSInternedID id);

}  // namespace contextdata::completion
