#include "tests/unit/workspace_value_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Service;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

// What is looked at first.

TEST_F(WorkspaceValueTest, JavaFunctionHasNoValueAndTheWorkspaceIsNotTouched) {
    world.javaMember("s", "a");
    world.variable("s", structureWith("a", world.number(7)));
    expectStopped(u"s.a");
    EXPECT_EQ(world.journal().countOf(Service::inGetValueFromCurrentWorkspace), 0U);
}

TEST_F(WorkspaceValueTest, MemberOfAJavaClassThatIsNoFunctionIsWalked) {
    world.javaMember("s", "a", "double");
    world.variable("s", structureWith("a", world.number(7)));
    expectWalked(u"s.a", 7);
}

TEST_F(WorkspaceValueTest, JavaFunctionIsAskedAboutFirst) {
    world.variable("s", world.number(7));
    numberOf(u"s");
    ASSERT_FALSE(world.journal().calls().empty());
    std::size_t conversions = 0;
    for (const Call& call : world.journal().calls()) {
        if (call.service == Service::inGetValueFromCurrentWorkspace) {
            break;
        }
        conversions += call.service == Service::toString ? 1 : 0;
    }
    EXPECT_EQ(conversions, 2U);  // of the question about Java, and of the walk
}

TEST_F(WorkspaceValueTest, TextWhoseFirstNameIsNoVariableIsNeverEvaluated) {
    bool called = false;
    world.function("f", [&](const qxArray*) {
        called = true;
        return world.number(1);
    });
    for (const char16_t* text : {u"f", u"f.a", u"f(1)", u"f;", u"f(1).a.b"}) {
        expectStopped(text);
    }
    EXPECT_FALSE(called);
}

TEST_F(WorkspaceValueTest, TextThatBeginsWithNoNameIsNeverEvaluated) {
    world.variable("s", world.number(7));
    for (const char16_t* text : {u"", u"1", u"'text'", u"(s)", u" s", u".s", u"_s", u"s2"}) {
        expectStopped(text);
    }
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::inGetValueFromCurrentWorkspace, ""}));
}

TEST_F(WorkspaceValueTest, FirstNameIsAsLongAsNamesCanBe) {
    world.variable("s", world.number(1));
    world.variable("s1_b", world.number(2));
    expectWalked(u"s1_b", 2);
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::inGetValueFromCurrentWorkspace, "s1_b"}).Times(1));
}

// Plain chains.

TEST_F(WorkspaceValueTest, VariableIsTheValueItselfWhateverItsShape) {
    qxUniqueArray matrix = world.doubles({3, 4});
    const qxArray* made = matrix.get();
    world.variable("m", std::move(matrix));
    EXPECT_EQ(GetValueFromCurrentWorkspace(u"m").get(), made);
    world.variable("none", world.doubles({0, 0}));
    EXPECT_NE(GetValueFromCurrentWorkspace(u"none"), nullptr);
    EXPECT_EQ(world.journal().countOf(Service::qxIsScalar), 0U);
    EXPECT_THAT(world.evaluations(), IsEmpty());
}

TEST_F(WorkspaceValueTest, FieldsOfScalarStructuresAreReadWithoutEvaluation) {
    qxUniqueArray end = world.number(7);
    const qxArray* made = end.get();
    world.variable("s", structureWith("a", structureWith("b", std::move(end))));
    const qxSharedArray value = GetValueFromCurrentWorkspace(u"s.a.b");
    EXPECT_EQ(value.get(), made);
    EXPECT_THAT(world.evaluations(), IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::inValidInterpreterAvailable), 0U);
}

TEST_F(WorkspaceValueTest, ValueOutlivesTheWorkspaceThatItCameFrom) {
    world.variable("s", structureWith("a", world.number(7)));
    const qxSharedArray value = GetValueFromCurrentWorkspace(u"s.a");
    world.variable("s", qxUniqueArray());
    world.endTemporaryScope();
    EXPECT_EQ(world.valuesAlive(), 1U);
    EXPECT_EQ(*qxGetDoubles(value.get()), 7);
}

TEST_F(WorkspaceValueTest, LastValueMayBeOfAnyShape) {
    world.variable("s", structureWith("a", world.doubles({2, 3})));
    EXPECT_NE(GetValueFromCurrentWorkspace(u"s.a"), nullptr);
    world.variable("s", structureWith("a", world.structure({1, 0})));
    EXPECT_NE(GetValueFromCurrentWorkspace(u"s.a"), nullptr);
    EXPECT_THAT(world.evaluations(), IsEmpty());
}

TEST_F(WorkspaceValueTest, FieldsOfOlderObjectsAreReadLikeThoseOfStructures) {
    qxUniqueArray object = world.olderObject("xob.Thing");
    world.setField(object, "a", world.number(7));
    world.variable("o", std::move(object));
    expectWalked(u"o.a", 7);
    EXPECT_EQ(world.journal().countOf(Service::omGetCOSClassID), 0U);
    EXPECT_EQ(world.journal().countOf(Service::inCallFcn), 0U);
}

TEST_F(WorkspaceValueTest, FieldsOfAClassSystemObjectThatBearsTheIdOfStructuresAreRead) {
    world.cls("bank.Account").method("a");
    for (const qxClassID id : {qxClassID::structure, qxClassID::object}) {
        qxUniqueArray object = world.objectOfID(id, "bank.Account");
        world.setField(object, "a", world.number(7));
        world.variable("o", std::move(object));
        expectWalked(u"o.a", 7);
    }
    EXPECT_EQ(world.journal().countOf(Service::omGetCOSClassID), 0U);
}

TEST_F(WorkspaceValueTest, PropertyOfAnObjectIsReadWithoutCopyingAndOutlivesTheTemporaryScope) {
    world.cls("bank.Account").property("balance").method("deposit");
    qxUniqueArray balance = world.number(7);
    const qxArray* made = balance.get();
    world.variable("account", objectWith("bank.Account", "balance", std::move(balance)));
    const qxSharedArray value = GetValueFromCurrentWorkspace(u"account.balance");
    world.endTemporaryScope();
    ASSERT_EQ(value.get(), made);
    EXPECT_EQ(*qxGetDoubles(value.get()), 7);
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 1U);
    EXPECT_THAT(world.evaluations(), IsEmpty());
}

TEST_F(WorkspaceValueTest, PropertyIsThatOfElementZero) {
    world.cls("bank.Account").property("balance");
    qxUniqueArray account = world.object("bank.Account");
    world.setProperty(account, 0, "balance", world.number(7));
    world.setProperty(account, 1, "balance", world.number(8));
    world.variable("account", std::move(account));
    expectWalked(u"account.balance", 7);
}

TEST_F(WorkspaceValueTest, InheritedPropertyIsRead) {
    world.cls("bank.Base").property("balance");
    world.cls("bank.Account").derives("bank.Base");
    world.variable("account", objectWith("bank.Account", "balance", world.number(7)));
    expectWalked(u"account.balance", 7);
}

TEST_F(WorkspaceValueTest, ChainsMixStructuresObjectsAndForeignValues) {
    world.cls("bank.Account").property("owner");
    qxUniqueArray foreign = opaqueWith({}, {u"name"});
    world.setProperty(foreign, "name", structureWith("last", world.number(7)));
    world.variable("s", structureWith("account", objectWith("bank.Account", "owner", std::move(foreign))));
    expectWalked(u"s.account.owner.name.last", 7);
}

// Where the walk stops for good.

TEST_F(WorkspaceValueTest, ValueOfSeveralElementsOrNoneIsNotSteppedInto) {
    for (const std::vector<std::size_t>& shape :
         {std::vector<std::size_t>{1, 2}, std::vector<std::size_t>{0, 0}, std::vector<std::size_t>{2, 2, 2}}) {
        qxUniqueArray value = structureWith("a", world.number(7));
        world.reshape(value.get(), shape);
        world.variable("s", std::move(value));
        expectStopped(u"s.a");
    }
    EXPECT_EQ(world.journal().countOf(Service::qxGetField), 0U);
}

TEST_F(WorkspaceValueTest, SeveralElementsInTheMiddleOfAChainStopItToo) {
    world.variable("s", structureWith("a", world.structure({1, 2})));
    expectStopped(u"s.a.b");
    world.cls("bank.Account").property("balance");
    world.variable("accounts", world.object("bank.Account", {1, 2}));
    expectStopped(u"accounts.balance");
    EXPECT_EQ(world.journal().countOf(Service::omGetCOSClassID), 0U);
}

TEST_F(WorkspaceValueTest, MethodOfAnObjectStopsTheWalkAndIsNotCalled) {
    bool called = false;
    world.cls("bank.Account").method("deposit").answers("deposit", [&](const qxArray*) {
        called = true;
        return world.number(1);
    });
    world.variable("account", world.object("bank.Account"));
    expectStopped(u"account.deposit");
    expectStopped(u"account.deposit.a");
    EXPECT_FALSE(called);
}

TEST_F(WorkspaceValueTest, EveryMethodStopsTheWalkHoweverItIsDeclared) {
    world.cls("bank.Base").method("inherited");
    world.cls("bank.Account").derives("bank.Base").method("open").isStatic().method("secret").access(2).unlistable();
    world.variable("account", world.object("bank.Account"));
    for (const char16_t* text : {u"account.inherited", u"account.open", u"account.secret"}) {
        expectStopped(text);
    }
}

TEST_F(WorkspaceValueTest, MethodWinsOverAPropertyOfItsName) {
    world.cls("bank.Account").property("balance").method("balance");
    world.variable("account", objectWith("bank.Account", "balance", world.number(7)));
    expectStopped(u"account.balance");
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 0U);
}

TEST_F(WorkspaceValueTest, ValuesWithoutMembersStopTheWalk) {
    const std::vector<qxClassID> withMembers = {qxClassID::structure, qxClassID::opaque, qxClassID::object};
    for (int id = 0; id <= 20; ++id) {
        if (std::find(withMembers.begin(), withMembers.end(), static_cast<qxClassID>(id)) == withMembers.end()) {
            world.variable("v", world.valueOf(static_cast<qxClassID>(id)));
            SCOPED_TRACE(id);
            expectStopped(u"v.a");
        }
    }
    EXPECT_EQ(world.journal().countOf(Service::inCallFcn), 0U);
}

TEST_F(WorkspaceValueTest, ValueWithoutMembersStopsTheWalkEvenIfItsTextWouldEvaluate) {
    qxUniqueArray number = world.number(1);
    world.setProperty(number, "a", world.number(7));
    world.variable("v", std::move(number));
    expectStopped(u"v.a");
    expectEvaluated(u"v(1).a", 7);
}

TEST_F(WorkspaceValueTest, ObjectOfAnUndefinedClassHasNoMembersToStepInto) {
    world.cls("bank.Draft").undefined().property("balance");
    world.variable("draft", objectWith("bank.Draft", "balance", world.number(7)));
    expectStopped(u"draft.balance");
}

TEST_F(WorkspaceValueTest, MethodOfAForeignValueStopsTheWalk) {
    qxUniqueArray foreign = opaqueWith({u"length", u"name"}, {u"name"});
    world.setProperty(foreign, "length", world.number(7));
    world.setProperty(foreign, "name", world.number(8));
    world.variable("text", std::move(foreign));
    expectStopped(u"text.length");
    expectStopped(u"text.name");  // a field, too, but the method wins
    EXPECT_EQ(world.journal().countOf(Service::qxGetPropertyShared), 0U);
    EXPECT_THAT(world.journal().calls(), Not(Contains(Call{Service::inCallFcn, "fieldnames"})));
}

// Foreign values.

TEST_F(WorkspaceValueTest, FieldOfAForeignValueIsReadOnceItsMethodsAreRuledOut) {
    qxUniqueArray foreign = opaqueWith({u"length"}, {u"bytes", u"name"});
    world.setProperty(foreign, "name", world.number(7));
    world.variable("text", std::move(foreign));
    expectWalked(u"text.name", 7);
    std::vector<Call> asked;
    for (const Call& call : world.journal().calls()) {
        if (call.service == Service::inCallFcn || call.service == Service::qxGetPropertyShared) {
            asked.push_back(call);
        }
    }
    EXPECT_THAT(asked, ElementsAre(Call{Service::inCallFcn, "methods"}, Call{Service::inCallFcn, "fieldnames"},
                                   Call{Service::qxGetPropertyShared, "name"}));
}

TEST_F(WorkspaceValueTest, FunctionsAreAskedOfTheForeignValueItself) {
    std::vector<const qxArray*> asked;
    const auto answer = [&](const qxArray* value) {
        asked.push_back(value);
        return world.cell({u"name"});
    };
    qxUniqueArray foreign = world.opaque("thing");
    const qxArray* made = foreign.get();
    world.setProperty(foreign, "name", world.number(7));
    world.variable("text", std::move(foreign));
    world.function("fieldnames", answer);
    world.function("methods", [&](const qxArray* value) {
        asked.push_back(value);
        return world.cell({u"names", u"nam", u"Name"});
    });
    expectWalked(u"text.name", 7);
    EXPECT_THAT(asked, ElementsAre(made, made));
}

TEST_F(WorkspaceValueTest, ForeignValueWhoseMethodsCannotBeListedMayHaveFields) {
    for (const bool throws : {true, false}) {
        qxUniqueArray foreign = opaqueWith({}, {u"name"});
        world.setProperty(foreign, "name", world.number(7));
        world.variable("text", std::move(foreign));
        world.function("methods", [this, throws](const qxArray*) {
            if (throws) {
                throw InterruptException();
            }
            return world.number(1);
        });
        expectWalked(u"text.name", 7);
    }
}

TEST_F(WorkspaceValueTest, ForeignValueWhoseFieldsCannotBeListedIsEvaluated) {
    world.variable("text", opaqueWith({u"length"}, {}));
    world.function("fieldnames", [](const qxArray*) -> qxUniqueArray { throw InterruptException(); });
    expectEvaluatedInVain(u"text.name");
}

TEST_F(WorkspaceValueTest, ClassSystemIsAskedAboutAForeignValueBeforeItsId) {
    world.cls("bank.Bridge").property("balance").method("deposit");
    qxUniqueArray bridge = world.objectOfID(qxClassID::opaque, "bank.Bridge");
    world.setProperty(bridge, "balance", world.number(7));
    world.setProperty(bridge, "other", world.number(8));
    world.variable("bridge", std::move(bridge));
    world.function("methods", [this](const qxArray*) { return world.cell({u"balance"}); });
    world.function("fieldnames", [this](const qxArray*) { return world.cell({u"deposit", u"other"}); });
    expectWalked(u"bridge.balance", 7);
    expectStopped(u"bridge.deposit");
    EXPECT_EQ(world.journal().countOf(Service::inCallFcn), 0U);
    expectEvaluated(u"bridge.other", 8);
}

TEST_F(WorkspaceValueTest, ClassSystemIsAskedAboutPlainValuesToo) {
    world.variable("v", world.number(1));
    expectStopped(u"v.a");
    EXPECT_EQ(world.journal().countOf(Service::omGetCOSClassID), 1U);
}

TEST_F(WorkspaceValueTest, ForeignObjectOfAnUndefinedClassIsAskedLikeAnyForeignValue) {
    world.cls("bank.Bridge").undefined().method("name");
    qxUniqueArray bridge = world.objectOfID(qxClassID::opaque, "bank.Bridge");
    world.setProperty(bridge, "name", world.number(7));
    world.variable("bridge", std::move(bridge));
    world.function("methods", [this](const qxArray*) { return world.cell({}); });
    world.function("fieldnames", [this](const qxArray*) { return world.cell({u"name"}); });
    expectWalked(u"bridge.name", 7);
}

}  // namespace
