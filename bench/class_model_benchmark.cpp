// Times of the class model on the in-memory host: construction for each path, and members beside their floor.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <deque>
#include <stdexcept>
#include <string>
#include <utility>

#include "bench/class_floor.h"
#include "contextdata/class_info.h"

namespace {

using bench::Graph;
using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;

ResolvedClassID idOf(const Graph& graph) { return ResolvedClassID::fromKnownResolvedClassID(graph.className); }

void construct(benchmark::State& state, const Graph& graph) {
    const ResolvedClassID id = idOf(graph);
    for (auto _ : state) {
        const ClassInfo info(id);
        benchmark::DoNotOptimize(info.getClass().data());
    }
    state.counters["paths"] = static_cast<double>(graph.paths);
    state.SetItemsProcessed(static_cast<std::int64_t>(graph.paths) * static_cast<std::int64_t>(state.iterations()));
}

template <class Collect>
void collect(benchmark::State& state, Collect collectMembers) {
    std::size_t records = 0;
    for (auto _ : state) {
        const auto members = collectMembers();
        records = members.size();
        benchmark::DoNotOptimize(members.data());
    }
    state.counters["records"] = static_cast<double>(records);
    state.SetItemsProcessed(static_cast<std::int64_t>(records) * static_cast<std::int64_t>(state.iterations()));
}

template <class Function>
void add(const std::string& name, Function function) {
    benchmark::RegisterBenchmark(name.c_str(), std::move(function));
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    // A large tree that is freed and made again would otherwise be taken from the system each time.
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    memory_host::World world;
    std::deque<std::pair<std::string, Graph>> bare;  // their nodes point at each other, so they must not be copied
    for (const std::size_t paths : {10U, 100U, 1000U, 10000U}) {
        bare.emplace_back("chain", bench::chain(world, paths, 0));
        bare.emplace_back("fan", bench::fan(world, paths - 1, 0));
    }
    bare.emplace_back("ladder of 4", bench::ladder(world, 4, 0));
    bare.emplace_back("ladder of 12", bench::ladder(world, 12, 0));
    std::deque<std::pair<std::string, Graph>> full;
    full.emplace_back("one class of 1000", bench::chain(world, 1, 1000));
    full.emplace_back("chain of 50", bench::chain(world, 50, 10));
    full.emplace_back("ladder of 6", bench::ladder(world, 6, 10));
    world.unwatched();

    for (const auto& [name, graph] : bare) {
        add("construction/" + name + "/" + std::to_string(graph.paths),
            [&graph = graph](benchmark::State& state) { construct(state, graph); });
    }
    std::deque<ClassInfo> infos;  // a copy's visitors would work for its source, so each stays where it is
    for (const auto& [name, graph] : full) {
        const ClassInfo& info = infos.emplace_back(idOf(graph));
        MethodInfo::GetOptions options;
        options.context = MethodInfo::GetContext::anyPosition;
        if (info.getMethods(options).size() != bench::floorMethods(graph.nodes.front()).size() ||
            info.getProperties(PropertyInfo::GetOptions()).size() !=
                bench::floorProperties(graph.nodes.front()).size()) {
            throw std::logic_error("the floor collects something else: " + name);
        }
        add("methods/" + name + "/library",
            [&info, options](benchmark::State& state) { collect(state, [&] { return info.getMethods(options); }); });
        add("methods/" + name + "/floor", [&graph = graph](benchmark::State& state) {
            collect(state, [&] { return bench::floorMethods(graph.nodes.front()); });
        });
        add("properties/" + name + "/library", [&info](benchmark::State& state) {
            collect(state, [&] { return info.getProperties(PropertyInfo::GetOptions()); });
        });
        add("properties/" + name + "/floor", [&graph = graph](benchmark::State& state) {
            collect(state, [&] { return bench::floorProperties(graph.nodes.front()); });
        });
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
