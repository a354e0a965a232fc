// One question to the workspace, many times, for an instruction counter:
// workspace_instructions walk|evaluation library|floor REPEATS
#include <boost/make_shared.hpp>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string_view>

#include "contextdata/values.h"
#include "contextdata/workspace.h"
#include "host/error_mode.h"
#include "host/evaluation.h"
#include "host/i18n.h"
#include "host/streams.h"
#include "hosts/memory/world.h"

namespace {

using Work = std::function<bool()>;

/// What the counter is told to look at: nothing but the work happens inside.
[[gnu::noinline]] bool measured(const Work& work) { return work(); }

const std::u16string chain = u"s.a.b.c";
const std::u16string indexed = u"t(2).a";

/// The host calls that following the chain by hand takes, the look for a Java class of that name among them.
bool walkByHand() {
    const std::string text = fl::i18n::to_string(chain, fl::i18n::codecvt_ustring_to_ascii(false));
    const std::size_t dot = text.rfind('.');
    if (qxCreateClassArray(text.substr(0, dot).c_str()) != nullptr) {
        return false;
    }
    const std::string narrow = fl::i18n::to_string(chain, fl::i18n::codecvt_ustring_to_ascii(false));
    std::string_view rest = narrow;
    const auto takeName = [&rest] {
        std::string name(rest.substr(0, qxCountNameCharacters(rest)));
        rest.remove_prefix(name.size());
        return name;
    };
    qxSharedArray value = inGetValueFromCurrentWorkspace(takeName());
    while (!rest.empty()) {
        rest.remove_prefix(1);
        const std::string name = takeName();
        if (!qxIsScalar(value.get()) || qxGetClassID(value.get()) != qxClassID::structure) {
            return false;
        }
        value = qxGetField(value.get(), 0, name.c_str());
    }
    return value != nullptr;
}

/// The host calls that evaluating silently by hand takes.
bool evaluateByHand() {
    if (!inValidInterpreterAvailable()) {
        return false;
    }
    const boost::shared_ptr<OutputSink> sink = boost::make_shared<OutputCapture>();
    OutputStream& output = OutputStream::standardOutput();
    output.push(sink);
    OutputStream& error = OutputStream::standardError();
    error.push(sink);
    const qxErrorMode mode = getErrorMode();
    setErrorMode(qxErrorMode::disabled);
    qxArray* value = nullptr;
    const bool succeeded =
        inEvalExp(indexed, 1, &value, false, inEvaluationSource::introspection) == inExecutionStatus::success;
    setErrorMode(mode);
    error.flush();
    error.pop();
    output.flush();
    output.pop();
    qxDestroyArray(value);
    return succeeded;
}

bool evaluateByLibrary() {
    qxArray* value = nullptr;
    const bool succeeded = EvalcExpSuccessful(indexed, 1, &value, false);
    qxDestroyArray(value);
    return succeeded;
}

Work workOf(std::string_view question, bool floor) {
    if (question == "walk") {
        return floor ? Work(walkByHand) : Work([] { return GetValueFromCurrentWorkspace(chain) != nullptr; });
    }
    return floor ? Work(evaluateByHand) : Work(evaluateByLibrary);
}

qxUniqueArray structureWith(memory_host::World& world, std::string_view field, qxUniqueArray value) {
    qxUniqueArray structure = world.structure();
    world.setField(structure, field, std::move(value));
    return structure;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: workspace_instructions walk|evaluation library|floor REPEATS\n");
        return 2;
    }
    memory_host::World world;
    world.variable("s",
                   structureWith(world, "a", structureWith(world, "b", structureWith(world, "c", world.number(1)))));
    qxUniqueArray several = world.structure({1, 2});
    world.setField(several, "a", world.number(1), 0);
    world.setField(several, "a", world.number(2), 1);
    world.variable("t", std::move(several));
    world.unwatched();
    const Work work = workOf(argv[1], std::string_view(argv[2]) == "floor");
    bool answered = measured(work);
    for (unsigned long repeat = 1, repeats = std::strtoul(argv[3], nullptr, 10); repeat < repeats; ++repeat) {
        answered = measured(work) && answered;
    }
    std::printf("%s\n", answered ? "answered" : "no answer");
    return answered ? 0 : 1;
}
