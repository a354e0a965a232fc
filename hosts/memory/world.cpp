#include "hosts/memory/world.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <utility>

#include "hosts/memory/id_iterator.h"
#include "hosts/memory/intern_table.h"
#include "hosts/memory/node_iterator.h"
#include "hosts/memory/world_state.h"

namespace memory_host {

namespace {

void abortOnLeak(const std::string& report) {
    std::fprintf(stderr, "%s\n", report.c_str());
    std::abort();
}

std::function<void(const std::string&)>& leakReporter() {
    static std::function<void(const std::string&)> reporter = abortOnLeak;
    return reporter;
}

}  // namespace

void setLeakReporter(std::function<void(const std::string& report)> reporter) { leakReporter() = std::move(reporter); }

World::World() : state_(std::make_unique<WorldState>()) {
    if (standingWorld != nullptr) {
        throw std::logic_error("a world stands already");
    }
    standingWorld = state_.get();
    activeWatch = &state_->watch;
}

World::~World() {
    // Registered code and metadata may hold values; they are not what a leak report is about.
    state_->functions.clear();
    for (Class& cls : state_->classes) {
        cls.callableMethods.clear();
        for (Property& property : cls.properties) {
            for (Attribute& attribute : property.attributes) {
                attribute.value.reset();
            }
        }
    }
    const std::size_t values = valuesAlive();
    const std::size_t handles = handlesAlive();
    activeWatch = nullptr;
    standingWorld = nullptr;
    if (values != 0 || handles != 0) {
        leakReporter()("still alive at the end of the world: " + std::to_string(values) + " values, " +
                       std::to_string(handles) + " node and iterator handles");
    }
}

ClassBuilder World::cls(std::string_view fullName) { return ClassBuilder(state_->classNamed(fullName)); }

NamespaceBuilder World::ns(std::string_view name) { return NamespaceBuilder(state_->namespaceNamed(name)); }

void World::legacyName(std::string_view older, std::string_view fullName) {
    state_->classesByName[intern(older)] = &state_->classNamed(fullName);
}

void World::convertsToAny(std::string_view typeID, TextFunction conversion) {
    state_->conversions.insert_or_assign({intern(typeID), intern("any")}, Conversion(std::move(conversion)));
}

void World::function(std::string_view name, ValueFunction body) {
    state_->functions.insert_or_assign(std::string(name), std::move(body));
}

void World::noInterpreter() { state_->hasInterpreter = false; }

void World::debuggerStoppedAt(std::u16string_view file, std::int32_t position1, std::int32_t position2) {
    DebuggerState& debugger = state_->debugger;
    debugger.stopped = true;
    debugger.file = file;
    debugger.position1 = position1;
    debugger.position2 = position2;
}

void World::debuggerRuns() { state_->debugger.stopped = false; }

FunctionScope* World::scope(std::u16string_view file) { return &state_->scopes.emplace_back(file); }

void World::imports(FunctionScope* scope, std::string_view name, std::string_view fullName) {
    scope->imports.insert_or_assign(std::string(name), std::string(fullName));
}

void World::executing(FunctionScope* scope) { state_->executing = scope; }

void World::documentedBuiltins(std::vector<std::u16string> names) { state_->documentedBuiltins = std::move(names); }

void World::contextResolution(bool on) { state_->contextResolution = on; }

CallJournal& World::journal() noexcept { return state_->watch.journal; }

FaultPlan& World::faults() noexcept { return state_->watch.faults; }

void World::unwatched() noexcept { activeWatch = nullptr; }

std::size_t World::handlesAlive() const noexcept {
    std::size_t alive = NodeIterator::alive() + IDIterator::alive();
    for (const Class& cls : state_->classes) {
        alive += cls.handlesAlive();
    }
    for (const Namespace& space : state_->namespaces) {
        alive += space.handlesAlive();
    }
    return alive;
}

}  // namespace memory_host
