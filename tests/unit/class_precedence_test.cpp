#include "contextdata/workspace.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;
using testing::ElementsAre;

class ClassPrecedenceTest : public WorldTest {
protected:
    ClassPrecedenceTest() {
        world.cls("bank.Money");
        world.cls("bank.Rate");
    }
};

TEST_F(ClassPrecedenceTest, RelationInNeitherDirectionIsZero) {
    EXPECT_EQ(GetClassPrecedence(u"bank.Money", u"bank.Rate"), 0);
    EXPECT_EQ(GetClassPrecedence(u"bank.Rate", u"bank.Money"), 0);
}

TEST_F(ClassPrecedenceTest, SwappingTheArgumentsSwapsTheSign) {
    world.precedes("bank.Money", "bank.Rate");
    EXPECT_EQ(GetClassPrecedence(u"bank.Money", u"bank.Rate"), -1);
    EXPECT_EQ(GetClassPrecedence(u"bank.Rate", u"bank.Money"), 1);
}

TEST_F(ClassPrecedenceTest, RelationInBothDirectionsIsMinusOneEitherWay) {
    world.precedes("bank.Money", "bank.Rate");
    world.precedes("bank.Rate", "bank.Money");
    EXPECT_EQ(GetClassPrecedence(u"bank.Money", u"bank.Rate"), -1);
    EXPECT_EQ(GetClassPrecedence(u"bank.Rate", u"bank.Money"), -1);
}

TEST_F(ClassPrecedenceTest, ClassAndItselfAreEqual) { EXPECT_EQ(GetClassPrecedence(u"bank.Money", u"bank.Money"), 0); }

TEST_F(ClassPrecedenceTest, NumbersAreLookedUpInTheOrderOfTheArguments) {
    GetClassPrecedence(u"bank.Money", u"bank.Rate");
    std::vector<Call> asked;
    for (const Call& call : world.journal().calls()) {
        if (call.service == Service::objectSystemGetClassNumber ||
            call.service == Service::objectSystemHasPrecedenceOver) {
            asked.push_back(call);
        }
    }
    EXPECT_THAT(asked, ElementsAre(Call{Service::objectSystemGetClassNumber, "bank.Money"},
                                   Call{Service::objectSystemGetClassNumber, "bank.Rate"},
                                   Call{Service::objectSystemHasPrecedenceOver, ""},
                                   Call{Service::objectSystemHasPrecedenceOver, ""}));
}

TEST_F(ClassPrecedenceTest, RelationIsAskedOnceWhenTheFirstAnswerIsYes) {
    world.precedes("bank.Money", "bank.Rate");
    GetClassPrecedence(u"bank.Money", u"bank.Rate");
    EXPECT_EQ(world.journal().countOf(Service::objectSystemHasPrecedenceOver), 1U);
    world.journal().clear();
    GetClassPrecedence(u"bank.Rate", u"bank.Money");
    EXPECT_EQ(world.journal().countOf(Service::objectSystemHasPrecedenceOver), 2U);
}

TEST_F(ClassPrecedenceTest, UnknownNamesAreAskedAboutLikeAnyOther) {
    EXPECT_EQ(GetClassPrecedence(u"no.Such", u""), 0);
    EXPECT_EQ(world.journal().countOf(Service::objectSystemGetClassNumber), 2U);
    EXPECT_EQ(world.journal().countOf(Service::objectSystemHasPrecedenceOver), 2U);
    world.precedes("bank.Money", "no.Such");
    EXPECT_EQ(GetClassPrecedence(u"bank.Money", u"something.Else"), -1);  // both have the number of no class
}

TEST_F(ClassPrecedenceTest, NamesGoOutInAsciiWithSubstitutes) {
    world.cls("b?nk");
    world.precedes("b?nk", "bank.Rate");
    EXPECT_EQ(GetClassPrecedence(u"b\u00E4nk", u"bank.Rate"), -1);
    EXPECT_EQ(GetClassPrecedence(u"bank.Rate", std::u16string(u"b") + char16_t{0xD800} + u"nk"), 1);
}

TEST_F(ClassPrecedenceTest, NothingIsCaught) {
    for (const Service service : {Service::getDispatcher, Service::getObjectSystem, Service::toString,
                                  Service::objectSystemGetClassNumber, Service::objectSystemHasPrecedenceOver}) {
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(GetClassPrecedence(u"bank.Money", u"bank.Rate"), InterruptException) << nameOf(service);
        world.faults().failService(service, Fault::badAlloc);
        EXPECT_THROW(GetClassPrecedence(u"bank.Money", u"bank.Rate"), std::bad_alloc) << nameOf(service);
    }
    world.faults().failService(Service::objectSystemHasPrecedenceOver, 2, Fault::thrownInt);
    EXPECT_THROW(GetClassPrecedence(u"bank.Money", u"bank.Rate"), int);
}

}  // namespace
