// The current workspace.
#include "contextdata/workspace.h"

#include <optional>

#include "contextdata/values/output_slot.h"
#include "contextdata/workspace_methods.h"
#include "tests/faults/function_table.h"
#include "tests/unit/question_faults.h"

namespace faults {

using contextdata::values::OutputSlot;
using enum Service;

namespace {

const std::u16string noisyExpression = u"several(two).a";
const std::u16string wrongExpression = u"several(two";
const std::u16string methodName = u"length";

Question evaluates(const std::u16string& expression) {
    return [expression](Scene&, Caller& caller) {
        OutputSlot output;
        const bool successful = caller([&] { return EvalcExpSuccessful(expression, 1, output.place(), true); });
        return told(successful) + " " + question_faults::described(output.get());
    };
}

/// The value, and whether anything was evaluated to find it.
Question valueOf(const std::u16string& expression) {
    return [expression](Scene& scene, Caller& caller) {
        const std::size_t before = scene.world.evaluations().size();
        const qxSharedArray value = caller([&] { return GetValueFromCurrentWorkspace(expression); });
        return told(value) + (scene.world.evaluations().size() == before ? "" : ", evaluated");
    };
}

Rule walk() { return passes().null({inGetValueFromCurrentWorkspace}, "nothing"); }

/// Once the walk has ended and the evaluation begins, whatever is thrown is no value.
Rule evaluation() {
    return walk()
        .at({qxSetArrayScope}, swallows("nothing, evaluated"))
        .from({inValidInterpreterAvailable, 1}, swallows("nothing"))
        .outputMayBeLost();
}

/// A value's class is asked for three times: is it an object, has it such a method, has it such a property? A host that
/// fails at the first ends the walk; at the second, there is no such method; after that, the text is evaluated.
Rule walkToProperty() {
    const Given evaluated = "7, evaluated";
    return walk()
        .at({{getClass, 1}, {classGetDefinition, 1}}, guarded("nothing"))
        .at({{getClass, 2}, {classGetDefinition, 2}}, guarded(whole))
        .at({{getClass, 3}, {classGetDefinition, 3}}, guarded(evaluated))
        .at({qxGetPropertyShared, qxSetArrayScope}, swallows(evaluated))
        .null({{getClass, 1}, {classGetDefinition, 1}}, "nothing")
        .null({{getClass, 3}, {classGetDefinition, 3}, classFindProperty, qxGetPropertyShared}, evaluated);
}

Rule walkToMethod() {
    const Given evaluated = "nothing, evaluated";
    return walk()
        .at({{getClass, 1}, {classGetDefinition, 1}}, guarded(whole))
        .at({{getClass, 2}, {classGetDefinition, 2}}, guarded(evaluated))
        .null({{getClass, 2}, {classGetDefinition, 2}, classFindMethods}, evaluated);
}

/// A foreign value is asked for its methods, then for its fields; one that cannot answer has none.
Rule walkToField() {
    const Given evaluated = "7, evaluated";
    return walk()
        .at({getClass}, guarded(whole))
        .from({inCallFcn, 1}, swallows(whole))
        .from({inCallFcn, 2}, swallows(evaluated))
        .null({{inCallFcn, 2}, {qxGetCell, 4}, qxGetPropertyShared}, evaluated);
}

Rule walkToForeignMethod() {
    const Given evaluated = "nothing, evaluated";
    return walk()
        .at({getClass}, guarded(whole))
        .from({inCallFcn, 1}, swallows(evaluated))
        .null({inCallFcn, qxGetCell}, evaluated);
}

Row valueRow() {
    return Row("GetValueFromCurrentWorkspace(u16string const&)", {workspace}, valueOf(u"s.a"),
               walk().null({qxGetField}, "7, evaluated"))
        .also({workspace}, valueOf(noisyExpression), evaluation())
        .also({workspace}, valueOf(wrongExpression), evaluation())
        .also({nothing}, valueOf(u"s.a"), walk())
        .also({workspace}, valueOf(u"account.balance"), walkToProperty())
        .also({workspace}, valueOf(u"account.deposit"), walkToMethod())
        .also({foreignValue}, valueOf(u"text.bytes"), walkToField())
        .also({foreignValue}, valueOf(u"text.length"), walkToForeignMethod());
}

Row methodsRow() {
    const auto methodsOf = [](Scene& scene) { return qxSharedArray(scene.value.get()); };
    const Question question = [methodsOf](Scene& scene, Caller& caller) {
        const qxSharedArray value = methodsOf(scene);
        return told(caller([&] { return getMethodsForWSVariable(methodName, value, 0); }));
    };
    return Row("getMethodsForWSVariable(u16string const&, boost::intrusive_ptr<qxArray const> const&, int)",
               {bank, undefinedAccount}, question,
               passes()
                   .at({getClass, {classGetDefinition, 1}}, guarded("[]"))
                   .at({inCallFcn}, swallows("[]"))
                   .null({getClass, classGetDefinition}, "[]")
                   .ownMemoryPasses())
        .also({foreignValue, foreignValueOfFewArts}, question,
              passes()
                  .at({getClass}, guarded(whole))
                  .from({inCallFcn, 1}, swallows("[]"))
                  .null({inCallFcn, qxGetCell}, "[]")
                  .ownMemoryPasses());
}

}  // namespace

std::vector<Row> workspaceRows() {
    return {
        Row(
            "DisableErrorMode::DisableErrorMode()", {nothing},
            [](Scene& scene, Caller& caller) {
                std::optional<DisableErrorMode> guard;
                caller([&] { guard.emplace(); });
                return std::to_string(static_cast<int>(scene.world.errorMode()));
            },
            passes()),
        Row(
            "DisableErrorMode::~DisableErrorMode()", {nothing},
            [](Scene& scene, Caller& caller) {
                std::optional<DisableErrorMode> guard;
                guard.emplace();
                caller([&] { guard.reset(); });
                return std::to_string(static_cast<int>(scene.world.errorMode()));
            },
            passes()),
        Row("EvalcExpSuccessful(u16string const&, int, qxArray**, bool)", {workspace, noInterpreter},
            evaluates(noisyExpression), passes().outputMayBeLost())
            .also({workspace}, evaluates(wrongExpression), passes().outputMayBeLost()),
        valueRow(),
        Row("GetClassPrecedence(u16string const&, u16string const&)", {precedence, nothing},
            asks([](Scene&, Caller&) { return GetClassPrecedence(account, base); }), passes()),
        methodsRow(),
    };
}

}  // namespace faults
