#include "contextdata/workspace_methods.h"

#include "contextdata/exclusion_tables.h"
#include "contextdata/values.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;

class WorkspaceMethodsTest : public WorldTest {
protected:
    static Names methodsOf(qxUniqueArray value, const std::u16string& name = u"x", std::int32_t selector = 1) {
        return getMethodsForWSVariable(name, makeSharedPtr(value.release()), selector);
    }
};

TEST_F(WorkspaceMethodsTest, ObjectListsTheNonStaticMethodsOfItsClass) {
    world.cls("bank.Account").method("Account").method("deposit").method("open").isStatic().method("audit").access(1);
    EXPECT_THAT(methodsOf(world.object("bank.Account")), ElementsAre(u"deposit"));
    EXPECT_EQ(world.journal().countOf(Service::inCallFcn), 0U);
}

TEST_F(WorkspaceMethodsTest, SelectorIsPassedThrough) {
    world.cls("bank.Account").method("deposit").method("audit").unlistable();
    EXPECT_THAT(methodsOf(world.object("bank.Account"), u"x", 0), ElementsAre(u"deposit", u"audit"));
    EXPECT_THAT(methodsOf(world.object("bank.Account"), u"x", 1), ElementsAre(u"deposit"));
    EXPECT_THAT(methodsOf(world.object("bank.Account"), u"x", -1), ElementsAre(u"audit"));
    EXPECT_THAT(methodsOf(world.object("bank.Account"), u"x", 5), IsEmpty());
}

TEST_F(WorkspaceMethodsTest, ObjectKeepsItsOperatorOverloads) {
    world.cls("bank.Money").method("plus").method("pay");
    EXPECT_THAT(methodsOf(world.object("bank.Money")), ElementsAre(u"plus", u"pay"));
}

TEST_F(WorkspaceMethodsTest, OtherValueIsAskedAndItsOperatorOverloadsAreDropped) {
    world.function("methods", [this](const qxArray*) {
        return world.cell({u"walk", u"plus", u"transpose", u"Plus", u"talk"});
    });
    EXPECT_THAT(methodsOf(world.opaque("thing")), ElementsAre(u"walk", u"Plus", u"talk"));
}

TEST_F(WorkspaceMethodsTest, EveryNameOfTheOperatorTableIsDropped) {
    world.function("methods", [this](const qxArray*) {
        std::vector<qxUniqueArray> all;
        for (const std::u16string& name : ZELKContextData::getZELKMethodsExcludeSet()) {
            all.push_back(world.charRow(name));
        }
        return world.cellOf(std::move(all));
    });
    EXPECT_THAT(methodsOf(world.number(1)), IsEmpty());
}

TEST_F(WorkspaceMethodsTest, MethodNamedLikeTheNameArgumentIsNeverListed) {
    world.cls("bank.Account").method("deposit").method("pay");
    EXPECT_THAT(methodsOf(world.object("bank.Account"), u"pay"), ElementsAre(u"deposit"));
    world.function("methods", [this](const qxArray*) { return world.cell({u"walk", u"pay"}); });
    EXPECT_THAT(methodsOf(world.opaque("thing"), u"pay"), ElementsAre(u"walk"));
}

TEST_F(WorkspaceMethodsTest, QualifiedNamesAreDropped) {
    world.function("methods", [this](const qxArray*) { return world.cell({u"a.b", u"walk", u".c", u"d."}); });
    EXPECT_THAT(methodsOf(world.opaque("thing")), ElementsAre(u"walk"));
    world.cls("bank.Account").method("pkg.deposit").method("pay");
    EXPECT_THAT(methodsOf(world.object("bank.Account")), ElementsAre(u"pay"));
}

TEST_F(WorkspaceMethodsTest, AnswerIsNeitherSortedNorDeduplicated) {
    world.function("methods", [this](const qxArray*) { return world.cell({u"z", u"a", u"z"}); });
    EXPECT_THAT(methodsOf(world.opaque("thing")), ElementsAre(u"z", u"a", u"z"));
}

TEST_F(WorkspaceMethodsTest, ObjectOfAnUndefinedClassIsAskedLikeAnyOtherValue) {
    world.cls("bank.Draft").undefined().method("deposit");
    world.function("methods", [this](const qxArray*) { return world.cell({u"walk"}); });
    EXPECT_THAT(methodsOf(world.object("bank.Draft")), ElementsAre(u"walk"));
}

TEST_F(WorkspaceMethodsTest, ValueThatCannotBeAskedHasNoMethods) {
    EXPECT_THAT(methodsOf(world.opaque("thing")), IsEmpty());
    world.faults().failService(Service::inCallFcn, Fault::interrupt);
    EXPECT_THAT(methodsOf(world.opaque("thing")), IsEmpty());
}

TEST_F(WorkspaceMethodsTest, EmptyHandleHasNoMethods) {
    EXPECT_THAT(getMethodsForWSVariable(u"x", qxSharedArray(), 1), IsEmpty());
}

TEST_F(WorkspaceMethodsTest, FailureOfTheWalkPassesToTheCaller) {
    world.cls("bank.Account").method("deposit").method("pay");
    const qxSharedArray account = makeSharedPtr(world.object("bank.Account").release());
    world.faults().failService(Service::methodGetName, 2, Fault::standardException);
    EXPECT_THROW(getMethodsForWSVariable(u"x", account, 1), std::runtime_error);
    world.faults().failService(Service::omGetCOSClassID, Fault::interrupt);
    EXPECT_THROW(getMethodsForWSVariable(u"x", account, 1), InterruptException);
}

}  // namespace
