// Records of methods and properties, for one class, for deep ones and for diamonds.
#include <memory>

#include "bench/floors/class_floor.h"
#include "bench/floors/questions.h"
#include "contextdata/class_info.h"

namespace bench {

using namespace ZELKContextData;

namespace {

void add(std::vector<Question>& questions, const std::string& name, Graph made) {
    // The nodes of a graph point at each other, so it must not be copied.
    const auto graph = std::make_shared<Graph>(std::move(made));
    const auto info = std::make_shared<ClassInfo>(ResolvedClassID::fromKnownResolvedClassID(graph->className));
    MethodInfo::GetOptions options;
    options.context = MethodInfo::GetContext::anyPosition;
    const PlainNode& cls = graph->nodes.front();
    questions.push_back(question(
        "member records", "getMethods, " + name, floorMethods(cls).size(),
        [info, options] { return info->getMethods(options); }, [graph] { return floorMethods(graph->nodes.front()); }));
    questions.push_back(question(
        "member records", "getProperties, " + name, floorProperties(cls).size(),
        [info] { return info->getProperties(PropertyInfo::GetOptions()); },
        [graph] { return floorProperties(graph->nodes.front()); }));
}

}  // namespace

std::vector<Question> memberRecordQuestions(memory_host::World& world) {
    std::vector<Question> questions;
    add(questions, "one class of 10", chain(world, 1, 10));
    add(questions, "one class of 1000", chain(world, 1, 1'000));
    add(questions, "chain of 50", chain(world, 50, 10));
    add(questions, "ladder of 6 diamonds", ladder(world, 6, 10));
    add(questions, "20 superclasses side by side", fan(world, 20, 10));
    return questions;
}

}  // namespace bench
