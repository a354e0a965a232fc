// One listing, many times, for an instruction counter: name_lists_instructions LISTING MEMBERS library|floor REPEATS
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "bench/listings.h"

namespace {

/// What the counter is told to look at: nothing but the listing happens inside.
[[gnu::noinline]] std::size_t measured(const bench::Listing& listing, const bench::Shape& shape,
                                       const ZELKContextData::ResolvedClassID& cls, bool floor) {
    return floor ? listing.floor(shape).size() : listing.library(cls).size();
}

const bench::Listing* listingNamed(std::string_view name) {
    for (const bench::Listing& listing : bench::listings) {
        if (listing.name == name) {
            return &listing;
        }
    }
    return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    const bench::Listing* listing = argc == 5 ? listingNamed(argv[1]) : nullptr;
    if (listing == nullptr) {
        std::fprintf(stderr, "usage: name_lists_instructions LISTING MEMBERS library|floor REPEATS\n");
        return 2;
    }
    memory_host::World world;
    const bench::Shape shape = bench::flatClass(world, std::strtoul(argv[2], nullptr, 10));
    world.unwatched();
    const auto cls = ZELKContextData::ResolvedClassID::fromKnownResolvedClassID(shape.className);
    const bool floor = std::string_view(argv[3]) == "floor";
    const unsigned long repeats = std::strtoul(argv[4], nullptr, 10);
    std::size_t names = measured(*listing, shape, cls, floor);  // warm: first-use tables are built here
    for (unsigned long repeat = 1; repeat < repeats; ++repeat) {
        names = measured(*listing, shape, cls, floor);
    }
    std::printf("%zu\n", names);
    return 0;
}
