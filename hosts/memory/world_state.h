// What a world holds, as the services see it.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/array_library.h"
#include "host/interpreter.h"
#include "hosts/memory/class.h"
#include "hosts/memory/function_scope.h"
#include "hosts/memory/namespace.h"
#include "hosts/memory/watch.h"

namespace memory_host {

struct DebuggerState {
    bool stopped = false;
    std::u16string file;
    std::int32_t position1 = 0;
    std::int32_t position2 = 0;
};

struct WorldState {
    Class& classNamed(std::string_view fullName);
    Namespace& namespaceNamed(std::string_view name);
    /// Null when there is none; follows older forms of names.
    Class* findClass(zelk::COSInternedID id) const;

    Watch watch;

    std::deque<Class> classes;
    std::unordered_map<zelk::COSInternedID, Class*> classesByName;  // older forms of names included
    std::size_t classGeneration = 1;                                // changes with the graph of superclasses
    std::deque<Namespace> namespaces;
    std::unordered_map<zelk::COSInternedID, Namespace*> namespacesByName;

    /// By source and target type.
    std::map<std::pair<zelk::COSInternedID, zelk::COSInternedID>, Conversion> conversions;

    std::vector<qxArray*> temporaries;  // references handed out that the temporary scope would end
    std::map<std::string, ValueFunction, std::less<>> functions;

    bool hasInterpreter = true;
    DebuggerState debugger;
    std::deque<FunctionScope> scopes;
    FunctionScope* executing = nullptr;
    std::vector<std::u16string> documentedBuiltins;
    bool contextResolution = false;
};

/// The world that answers. Throws a host failure when none stands.
WorldState& currentWorld();

/// Null when none stands.
inline WorldState* standingWorld = nullptr;

}  // namespace memory_host
