// The interpreter as an evaluator.
#include "host/evaluation.h"

#include <optional>

#include "hosts/memory/encoding.h"
#include "hosts/memory/evaluator.h"
#include "hosts/memory/failure.h"
#include "hosts/memory/value_making.h"
#include "hosts/memory/watch.h"
#include "hosts/memory/world_state.h"

using foundation::core::except::IException;
using foundation::core::except::InterruptException;
using memory_host::currentWorld;
using memory_host::enter;
using memory_host::entersToNull;
using memory_host::HostFailure;
using memory_host::Service;

namespace {

constexpr auto failed = static_cast<inExecutionStatus>(1);

/// Hands a value over as an evaluation does: owned by the caller, and standing in the temporary scope.
qxArray* handedOver(const qxSharedArray& value) {
    qxUniqueArray claimed = memory_host::sharedClaim(value.get());
    currentWorld().temporaries.push_back(claimed.get());
    return claimed.release();
}

/// An error of the expression is said to the person at the prompt, unless errors are disabled.
void report(std::string_view complaint) {
    memory_host::WorldState& world = currentWorld();
    if (world.errorMode != qxErrorMode::disabled) {
        world.standardError.print(memory_host::utf16Of(complaint) + u"\n");
    }
}

qxSharedArray evaluated(const std::u16string& expression) {
    const std::optional<std::string> text = memory_host::utf8Of(expression);
    if (!text) {
        throw memory_host::EvaluationError("the text is invalid");
    }
    return memory_host::evaluate(*text);
}

/// The names of all namespaces, as objects.
qxUniqueArray namespaceObjects() {
    memory_host::WorldState& world = currentWorld();
    qxUniqueArray objects =
        memory_host::makeValue(qxClassID::object, "ostrel.metadata.Namespace", {1, world.namespaces.size()});
    std::size_t index = 0;
    for (const memory_host::Namespace& space : world.namespaces) {
        const std::string_view name = space.id.view();
        objects->elementProperties.insert_or_assign({index++, "Name"},
                                                    memory_host::makeText(memory_host::utf16Of(name)));
    }
    return objects;
}

qxUniqueArray call(std::string_view function, const qxArray* input) {
    const auto& functions = currentWorld().functions;
    if (const auto found = functions.find(function); found != functions.end()) {
        return found->second(input);
    }
    if (function == "ostrel.metadata.Namespace.getAllNamespaces") {
        return namespaceObjects();
    }
    throw HostFailure("undefined function");
}

}  // namespace

bool inValidInterpreterAvailable() {
    enter(Service::inValidInterpreterAvailable);
    return currentWorld().hasInterpreter;
}

inExecutionStatus inEvalExp(const std::u16string& expression, int outputCount, qxArray** outputs, bool flag,
                            inEvaluationSource source) {
    enter(Service::inEvalExp);
    memory_host::WorldState& world = currentWorld();
    const memory_host::Evaluation asked = {expression, outputCount, flag, source};
    world.evaluations.push_back(asked);
    if (world.evaluator) {
        return world.evaluator(asked, outputs);
    }
    try {
        const qxSharedArray value = evaluated(expression);
        if (outputCount > 0) {
            outputs[0] = handedOver(value);
        }
        return inExecutionStatus::success;
    } catch (const InterruptException&) {
        throw;
    } catch (const memory_host::EvaluationError& error) {
        report(error.what());
        return failed;
    } catch (const IException& error) {
        report(error.getMessage());
        return failed;
    }
}

qxSharedArray inGetValueFromCurrentWorkspace(const std::string& name) {
    if (entersToNull(Service::inGetValueFromCurrentWorkspace, std::string_view(name))) {
        return nullptr;
    }
    const auto& variables = currentWorld().variables;
    const auto found = variables.find(name);
    return found == variables.end() ? nullptr : found->second.get();
}

void inFullFevalFcn(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs) {
    const bool answersNull = entersToNull(Service::inFullFevalFcn);
    if (inputCount < 1 || inputCount > 2 || outputCount != 1 || inputs[0]->textKind != memory_host::TextKind::present) {
        throw HostFailure("the name of a function, at most one value, and one result");
    }
    // No function has a name that is no text.
    const std::string name = memory_host::utf8Of(inputs[0]->text).value_or("");
    qxUniqueArray result = call(name, inputCount == 2 ? inputs[1] : nullptr);
    outputs[0] = answersNull ? nullptr : result.release();
}

int inCallFcnWithTrap(int outputCount, qxArray** outputs, int inputCount, const qxArray* const* inputs,
                      const char* functionName, bool trap) {
    const bool answersNull = entersToNull(Service::inCallFcnWithTrap, std::string_view(functionName));
    if (outputCount != 1 || inputCount > 1) {
        throw HostFailure("functions here take one value at most and give one");
    }
    try {
        qxUniqueArray result = call(functionName, inputCount == 1 ? inputs[0] : nullptr);
        outputs[0] = answersNull ? nullptr : result.release();
        return currentWorld().failingFunctions.contains(std::string_view(functionName)) ? 1 : 0;
    } catch (const InterruptException&) {
        throw;
    } catch (const IException&) {
        if (!trap) {
            throw;
        }
        return 1;
    }
}
