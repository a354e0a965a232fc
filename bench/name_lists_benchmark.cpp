// Times of the member name lists on the in-memory host, each beside its floor.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "bench/listings.h"

namespace {

using bench::Listing;
using bench::Shape;
using ZELKContextData::ResolvedClassID;

void measure(benchmark::State& state, const Listing& listing, const Shape& shape, bool floor) {
    const ResolvedClassID cls = ResolvedClassID::fromKnownResolvedClassID(shape.className);
    std::size_t names = 0;
    for (auto _ : state) {
        const bench::Names list = floor ? listing.floor(shape) : listing.library(cls);
        names = list.size();
        benchmark::DoNotOptimize(list.data());
    }
    state.counters["names"] = static_cast<double>(names);
    state.SetItemsProcessed(static_cast<std::int64_t>(names) * static_cast<std::int64_t>(state.iterations()));
}

void registerPair(const Listing& listing, const std::string& shapeName, const Shape& shape) {
    const ResolvedClassID cls = ResolvedClassID::fromKnownResolvedClassID(shape.className);
    if (listing.library(cls) != listing.floor(shape)) {
        throw std::logic_error("the floor lists something else: " + std::string(listing.name) + " of " + shapeName);
    }
    for (const bool floor : {false, true}) {
        const std::string name = std::string(listing.name) + "/" + shapeName + (floor ? "/floor" : "/library");
        benchmark::RegisterBenchmark(name.c_str(), [&listing, &shape, floor](benchmark::State& state) {
            measure(state, listing, shape, floor);
        });
    }
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    memory_host::World world;
    std::vector<std::pair<std::string, Shape>> shapes;
    for (const std::size_t members : {10U, 1000U, 100000U}) {
        shapes.emplace_back("flat " + std::to_string(members), bench::flatClass(world, members));
    }
    shapes.emplace_back("chain of 50", bench::chainOfClasses(world, 50));
    shapes.emplace_back("12 diamonds", bench::stackedDiamonds(world, 12));
    world.unwatched();
    for (const auto& [name, shape] : shapes) {
        for (const Listing& listing : bench::listings) {
            registerPair(listing, name, shape);
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
