// Every host call of an evaluation, and of reading a value of the workspace, fails in turn and in every way.
#include "contextdata/workspace.h"
#include "tests/unit/question_faults.h"

namespace {

using namespace question_faults;

class EvaluationFaults : public QuestionFaults {
protected:
    static Ask evaluates(const std::u16string& expression) {
        return [expression](Names&) -> Reply {
            qxArray* output = nullptr;
            const bool successful = EvalcExpSuccessful(expression, 1, &output, true);
            return {successful ? "true" : "false", {shared(qxUniqueArray(output))}};
        };
    }

    /// Sweeps the value of an expression; `walkRule` rules what happens before anything is evaluated.
    void sweepValue(const std::u16string& expression, const Rule& walkRule) {
        const Ask ask = [expression](Names&) -> Reply { return {"", {GetValueFromCurrentWorkspace(expression)}}; };
        sweep(ask, [&](const FailedCall& failed, const Answer& full) {
            if (failed.countOf(Service::inValidInterpreterAvailable) == 0) {
                return walkRule(failed, full);
            }
            return failed.isNullAnswer() ? full : Answer{" nothing", {u"kept"}, wasEvaluatedBefore(failed)};
        });
    }

    /// What a walk that merely passes failures on makes of them, given what it makes of null answers.
    static Answer walkPasses(const FailedCall& failed, const Answer& full) {
        if (failed.isNullAnswer() && failed.call().service == Service::inGetValueFromCurrentWorkspace) {
            return stopped;
        }
        return everythingPasses(failed, full);
    }

    static Answer evaluatedTo(const std::string& text) { return {" " + text, {u"kept"}, true}; }

    static inline const Answer stopped = {" nothing", {u"kept"}, false};
};

// Evaluation.

TEST_F(EvaluationFaults, SuccessfulEvaluationPassesEverything) {
    world.variable("x", world.number(7));
    sweep(evaluates(u"x"), everythingPasses);
}

TEST_F(EvaluationFaults, FailedEvaluationPassesEverything) { sweep(evaluates(u"nothing"), everythingPasses); }

TEST_F(EvaluationFaults, EvaluationWithoutAnInterpreterPassesEverything) {
    world.noInterpreter();
    sweep(evaluates(u"x"), everythingPasses);
}

TEST_F(EvaluationFaults, GuardOfTheErrorModePassesEverything) {
    sweep(
        [this](Names&) -> Reply {
            const DisableErrorMode guard;
            return {std::to_string(static_cast<int>(world.errorMode())), {}};
        },
        everythingPasses);
}

// Values of the workspace.

TEST_F(EvaluationFaults, ChainOfFieldsPassesEverythingAndIsEvaluatedWhenAFieldYieldsNothing) {
    qxUniqueArray inner = world.structure();
    world.setField(inner, "b", world.number(7));
    qxUniqueArray outer = world.structure();
    world.setField(outer, "a", std::move(inner));
    world.variable("s", std::move(outer));
    sweepValue(u"s.a.b", [](const FailedCall& failed, const Answer& full) {
        return failed.isNullAnswer() && failed.call().service == Service::qxGetField ? evaluatedTo("7")
                                                                                     : walkPasses(failed, full);
    });
}

TEST_F(EvaluationFaults, PropertyThatCannotBeReadIsEvaluated) {
    world.cls("bank.Account").property("balance").method("deposit");
    qxUniqueArray account = world.object("bank.Account");
    world.setProperty(account, "balance", world.number(7));
    world.variable("account", std::move(account));
    sweepValue(u"account.balance", [](const FailedCall& failed, const Answer& full) {
        const Service service = failed.call().service;
        if (isOneOf(service, {Service::getClass, Service::classGetDefinition})) {
            // Asked three times: is it an object, has it such a method, has it such a property?
            const Answer outcomes[] = {stopped, full, evaluatedTo("7")};
            return failed.isInterrupt() ? passing(failed) : outcomes[failed.countOf(Service::omGetCOSClassID) - 1];
        }
        if (service == Service::qxGetPropertyShared ||
            (service == Service::qxSetArrayScope && !failed.isNullAnswer()) ||
            (service == Service::classFindProperty && failed.isNullAnswer())) {
            return evaluatedTo("7");
        }
        return walkPasses(failed, full);
    });
}

TEST_F(EvaluationFaults, MethodStopsTheWalkUnlessItCannotBeFound) {
    world.cls("bank.Account").method("deposit");
    world.variable("account", world.object("bank.Account"));
    sweepValue(u"account.deposit", [](const FailedCall& failed, const Answer& full) {
        const Service service = failed.call().service;
        if (isOneOf(service, {Service::getClass, Service::classGetDefinition}) && !failed.isInterrupt()) {
            return failed.countOf(Service::omGetCOSClassID) == 1 ? stopped : evaluatedTo("nothing");
        }
        if (service == Service::classFindMethods && failed.isNullAnswer()) {
            return evaluatedTo("nothing");
        }
        return walkPasses(failed, full);
    });
}

TEST_F(EvaluationFaults, ForeignValueThatCannotListItsNamesHasNone) {
    world.function("methods", [this](const qxArray*) { return world.cell({u"length", u"trim"}); });
    world.function("fieldnames", [this](const qxArray*) { return world.cell({u"name", u"bytes"}); });
    qxUniqueArray foreign = world.opaque("java.lang.String");
    world.setProperty(foreign, "name", world.number(7));
    world.variable("text", std::move(foreign));

    const auto isHeeded = [](const FailedCall& failed) {
        return !failed.isNullAnswer() ||
               isOneOf(failed.call().service, {Service::inCallFcn, Service::qxGetCell, Service::qxGetPropertyShared});
    };
    const auto beforeTheLists = [](const FailedCall& failed, const Answer& full) {
        const bool isLookUp = failed.call().service == Service::getClass;
        return isLookUp && !failed.isInterrupt() ? full : walkPasses(failed, full);
    };
    sweepValue(u"text.name", [&](const FailedCall& failed, const Answer& full) {
        const std::size_t lists = failed.countOf(Service::inCallFcn);
        if (lists == 0) {
            return beforeTheLists(failed, full);
        }
        return lists == 2 && isHeeded(failed) ? evaluatedTo("7") : full;  // it would not have been a method anyway
    });
    sweepValue(u"text.length", [&](const FailedCall& failed, const Answer& full) {
        if (failed.countOf(Service::inCallFcn) == 0) {
            return beforeTheLists(failed, full);
        }
        return isHeeded(failed) ? evaluatedTo("nothing") : stopped;
    });
}

TEST_F(EvaluationFaults, EvaluatedValueIsNoValueWhateverTheEvaluationThrows) {
    qxUniqueArray several = world.structure({1, 2});
    world.setField(several, "a", world.number(7), 1);
    world.variable("s", std::move(several));
    sweepValue(u"s(2).a", walkPasses);
    sweepValue(u"s.", walkPasses);
    sweepValue(u"s(3).a", walkPasses);
}

TEST_F(EvaluationFaults, ValuesThatStopTheWalkPassItsFailures) {
    world.variable("v", world.number(7));
    world.variable("s", world.structure({1, 2}));
    sweepValue(u"s.a", walkPasses);
    sweepValue(u"f.a", walkPasses);
    sweepValue(u"v.a", [](const FailedCall& failed, const Answer& full) {
        const bool isLookUp = failed.call().service == Service::getClass;
        return isLookUp && !failed.isInterrupt() ? stopped : walkPasses(failed, full);
    });
}

TEST_F(EvaluationFaults, JavaFunctionThatCannotBeFoundIsWalked) {
    qxUniqueArray value = world.structure();
    world.setField(value, "a", world.number(7));
    world.variable("s", std::move(value));
    world.javaMember("s", "a");
    sweepValue(u"s.a", [](const FailedCall& failed, const Answer& full) {
        const bool isLookUp = isOneOf(failed.call().service, {Service::qxCreateClassArray, Service::qxFindClassMember});
        return failed.isNullAnswer() && isLookUp ? Answer{" 7"} : everythingPasses(failed, full);
    });
}

}  // namespace
