// Graphs of classes for the class model: in a world for the library, and as plain data for the floor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "host/interned.h"
#include "hosts/memory/world.h"

namespace bench {

/// A property's declaration as plain data.
struct PlainType {
    std::string className;  ///< empty for a property without a type
    std::vector<std::string> dimensions;
    std::vector<std::string> validators;
};

struct PlainDeclaration {
    zelk::COSInternedID name;
    std::int32_t access = 0;
    bool isStatic = false;
    bool isShown = true;
    PlainType type;  ///< of a property
};

/// A class and its direct superclasses, as plain data.
struct PlainNode {
    zelk::COSInternedID id;
    std::vector<PlainDeclaration> methods;
    std::vector<PlainDeclaration> properties;
    std::vector<const PlainNode*> superclasses;
};

/// A class with all it derives from; `paths` counts the ways from it to the ancestors, itself included.
struct Graph {
    std::string className;
    std::deque<PlainNode> nodes;  ///< the first is the class
    std::size_t paths = 0;
};

/// `depth` classes, each deriving from the next.
Graph chain(memory_host::World& world, std::size_t depth, std::size_t members);

/// A class with `width` direct superclasses.
Graph fan(memory_host::World& world, std::size_t width, std::size_t members);

/// `rungs` diamonds on top of each other: the paths double with each.
Graph ladder(memory_host::World& world, std::size_t rungs, std::size_t members);

}  // namespace bench
