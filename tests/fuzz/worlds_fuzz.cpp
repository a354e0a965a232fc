// Random worlds: classes with superclasses that may not exist or list each other, hidden and restricted members, types,
// older names, namespaces, scopes. Every exported query is asked, and a plain model of the rules has to agree.
#include "tests/fuzz/expect.h"
#include "tests/fuzz/model_world.h"
#include "tests/fuzz/queries.h"
#include "tests/fuzz/target.h"

namespace {

using namespace fuzz;

/// Builds the world and asks about it. Only where the host is to fail, its calls are watched: that costs more than most
/// of them.
void ask(Input& input, const Model& model, bool whileTheHostFails) {
    memory_host::World world;
    if (!whileTheHostFails) {
        world.unwatched();
    }
    const std::vector<FunctionScope*> scopes = build(model, world);
    const ClassRules classes(model);
    const Case asked{input, model, world, scopes, classes, RecordRules(model, classes)};
    if (whileTheHostFails) {
        askWhileTheHostFails(asked);
    } else {
        askAboutClasses(asked);
        askAboutRecords(asked);
        askAboutNamespaces(asked);
        askAboutValues(asked);
        askAboutFolders(asked);
    }
    expectEqual(world.handlesAlive(), std::size_t{0}, "handles alive");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const Model model = makeModel(input);
    ask(input, model, false);
    ask(input, model, true);
    return 0;
}
