// What a world holds, as the services see it.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/array_library.h"
#include "host/error_mode.h"
#include "host/interpreter.h"
#include "hosts/memory/class.h"
#include "hosts/memory/folders.h"
#include "hosts/memory/function_scope.h"
#include "hosts/memory/namespace.h"
#include "hosts/memory/streams.h"
#include "hosts/memory/watch.h"
#include "hosts/memory/world.h"

namespace memory_host {

struct DebuggerState {
    bool stopped = false;
    std::u16string file;
    std::int32_t position1 = 0;
    std::int32_t position2 = 0;
};

/// What a function declares about its arguments, where it does so; a null scope stands for everywhere.
struct FunctionMetadata {
    std::string name;
    FunctionScope* scope;
    qxUniqueArray first;
    qxUniqueArray second;
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
    std::set<std::string, std::less<>> failingFunctions;
    Evaluator evaluator;  // empty: the host's own language
    std::vector<Evaluation> evaluations;

    std::map<std::string, qxUniqueArray, std::less<>> variables;
    std::vector<boost::weak_ptr<OutputSink>> sinks;
    MemoryStream standardOutput{"output", sinks};
    MemoryStream standardError{"error", sinks};
    qxErrorMode errorMode{};

    bool hasInterpreter = true;
    DebuggerState debugger;
    std::deque<FunctionScope> scopes;
    FunctionScope* executing = nullptr;
    std::vector<std::u16string> documentedBuiltins;
    bool contextResolution = false;
    std::vector<FunctionMetadata> functionMetadata;
    std::set<std::pair<std::string, std::string>> precedences;

    WorkingFolder workingFolder;
    SearchPath searchPath;

    /// Class name -> member name -> class of the member.
    std::map<std::string, std::map<std::string, std::string, std::less<>>, std::less<>> javaClasses;
};

/// The world that answers. Throws a host failure when none stands.
WorldState& currentWorld();

/// Null when none stands.
inline WorldState* standingWorld = nullptr;

}  // namespace memory_host
