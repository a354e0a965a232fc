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
    // What the world itself holds is not what a leak report is about.
    activeWatch = nullptr;
    state_->watch.observers.clear();
    state_->evaluator = nullptr;
    state_->functions.clear();
    state_->variables.clear();
    state_->functionMetadata.clear();
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

void World::functionFails(std::string_view name) { state_->failingFunctions.emplace(name); }

void World::evaluatedBy(Evaluator evaluator) { state_->evaluator = std::move(evaluator); }

const std::vector<Evaluation>& World::evaluations() const noexcept { return state_->evaluations; }

void World::variable(std::string_view name, qxUniqueArray value) {
    state_->variables.insert_or_assign(std::string(name), std::move(value));
}

void World::print(std::u16string_view text) { state_->standardOutput.print(text); }

void World::printError(std::u16string_view text) { state_->standardError.print(text); }

const std::u16string& World::shown() const noexcept { return state_->standardOutput.shown(); }

const std::u16string& World::shownErrors() const noexcept { return state_->standardError.shown(); }

std::size_t World::diversions() const noexcept {
    return state_->standardOutput.diversions() + state_->standardError.diversions();
}

const std::vector<boost::weak_ptr<OutputSink>>& World::sinks() const noexcept { return state_->sinks; }

qxErrorMode World::errorMode() const noexcept { return state_->errorMode; }

void World::errorMode(qxErrorMode mode) noexcept { state_->errorMode = mode; }

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

void World::functionMetadata(std::string_view name, FunctionScope* scope, qxUniqueArray first, qxUniqueArray second) {
    state_->functionMetadata.push_back({std::string(name), scope, std::move(first), std::move(second)});
}

void World::precedes(std::string_view cls, std::string_view other) { state_->precedences.emplace(cls, other); }

void World::workingFolder(std::u16string path) { state_->workingFolder.path = std::move(path); }

void World::searchPathEntry(std::u16string path, std::int32_t kind) {
    state_->searchPath.entries.push_back(std::make_shared<PathEntry>(std::move(path), kind));
}

void World::javaMember(std::string_view className, std::string_view memberName, std::string_view memberClass) {
    state_->javaClasses[std::string(className)].insert_or_assign(std::string(memberName), std::string(memberClass));
}

void World::contextResolution(bool on) { state_->contextResolution = on; }

CallJournal& World::journal() noexcept { return state_->watch.journal; }

FaultPlan& World::faults() noexcept { return state_->watch.faults; }

void World::whenCalled(Service service, std::function<void()> observer) {
    state_->watch.observers.insert_or_assign(service, std::move(observer));
}

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
