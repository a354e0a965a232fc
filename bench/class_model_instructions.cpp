// One piece of work of the class model, many times, for an instruction counter:
// class_model_instructions construction|methods|properties chain|fan|ladder SIZE MEMBERS library|floor REPEATS
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string_view>

#include "bench/class_floor.h"
#include "contextdata/class_info.h"

namespace {

using ZELKContextData::ClassInfo;
using ZELKContextData::MethodInfo;
using ZELKContextData::PropertyInfo;
using ZELKContextData::ResolvedClassID;

using Work = std::function<std::size_t()>;

/// What the counter is told to look at: nothing but the work happens inside.
[[gnu::noinline]] std::size_t measured(const Work& work) { return work(); }

bench::Graph graphOf(memory_host::World& world, std::string_view shape, std::size_t size, std::size_t members) {
    if (shape == "chain") {
        return bench::chain(world, size, members);
    }
    return shape == "fan" ? bench::fan(world, size, members) : bench::ladder(world, size, members);
}

Work construction(const ResolvedClassID& id) {
    return [id] { return ClassInfo(id).getClass().size(); };
}

Work methods(const ClassInfo& info, const bench::PlainNode& plain, bool floor) {
    if (floor) {
        return [&plain] { return bench::floorMethods(plain).size(); };
    }
    MethodInfo::GetOptions options;
    options.context = MethodInfo::GetContext::anyPosition;
    return [&info, options] { return info.getMethods(options).size(); };
}

Work properties(const ClassInfo& info, const bench::PlainNode& plain, bool floor) {
    if (floor) {
        return [&plain] { return bench::floorProperties(plain).size(); };
    }
    return [&info] { return info.getProperties(PropertyInfo::GetOptions()).size(); };
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 7) {
        std::fprintf(stderr,
                     "usage: class_model_instructions construction|methods|properties chain|fan|ladder SIZE MEMBERS "
                     "library|floor REPEATS\n");
        return 2;
    }
    memory_host::World world;
    const bench::Graph graph =
        graphOf(world, argv[2], std::strtoul(argv[3], nullptr, 10), std::strtoul(argv[4], nullptr, 10));
    world.unwatched();
    const ResolvedClassID id = ResolvedClassID::fromKnownResolvedClassID(graph.className);
    const ClassInfo info(id);
    const bool floor = std::string_view(argv[5]) == "floor";
    const std::string_view kind = argv[1];
    const Work work = kind == "construction" ? construction(id)
                      : kind == "methods"    ? methods(info, graph.nodes.front(), floor)
                                             : properties(info, graph.nodes.front(), floor);
    std::size_t result = measured(work);  // warm: first-use tables are built here
    for (unsigned long repeat = 1, repeats = std::strtoul(argv[6], nullptr, 10); repeat < repeats; ++repeat) {
        result = measured(work);
    }
    std::printf("%zu %zu\n", graph.paths, result);
    return 0;
}
