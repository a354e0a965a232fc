#include "contextdata/other_object_systems.h"
#include "tests/support/world_test.h"

namespace {

using foundation::core::except::InterruptException;
using memory_host::Call;
using memory_host::Fault;
using memory_host::Service;
using testing::Contains;
using testing::IsEmpty;

class JavaFunctionsTest : public WorldTest {
protected:
    JavaFunctionsTest() { world.javaMember("java.lang.String", "valueOf"); }
};

TEST_F(JavaFunctionsTest, StaticMemberOfAJavaClassIsAFunction) {
    EXPECT_TRUE(IsJavaFunction(u"java.lang.String.valueOf"));
}

TEST_F(JavaFunctionsTest, NameIsDividedAtItsLastDot) {
    IsJavaFunction(u"java.lang.String.valueOf");
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::qxCreateClassArray, "java.lang.String"}));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::qxFindClassMember, "valueOf"}));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::qxIsA, "java"}));
}

TEST_F(JavaFunctionsTest, NameWithoutADotIsNoneAndNoClassIsMade) {
    world.javaMember("", "valueOf");
    EXPECT_FALSE(IsJavaFunction(u"valueOf"));
    EXPECT_FALSE(IsJavaFunction(u""));
    EXPECT_EQ(world.journal().countOf(Service::qxCreateClassArray), 0U);
}

TEST_F(JavaFunctionsTest, NameWhoseLastDotComesFirstIsNoneAndNoClassIsMade) {
    world.javaMember("", "valueOf");
    EXPECT_FALSE(IsJavaFunction(u".valueOf"));
    EXPECT_FALSE(IsJavaFunction(u"."));
    EXPECT_EQ(world.journal().countOf(Service::qxCreateClassArray), 0U);
}

TEST_F(JavaFunctionsTest, LeadingDotOfALongerNameIsPartOfTheClassName) {
    EXPECT_FALSE(IsJavaFunction(u".java.valueOf"));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::qxCreateClassArray, ".java"}));
}

TEST_F(JavaFunctionsTest, TrailingDotLooksAnEmptyMemberUp) {
    EXPECT_FALSE(IsJavaFunction(u"java.lang.String."));
    EXPECT_THAT(world.journal().calls(), Contains(Call{Service::qxFindClassMember, ""}));
    world.javaMember("java.lang.String", "");
    EXPECT_TRUE(IsJavaFunction(u"java.lang.String."));
}

TEST_F(JavaFunctionsTest, ClassThatTheHostCannotMakeHasNone) {
    EXPECT_FALSE(IsJavaFunction(u"java.lang.Nothing.valueOf"));
    EXPECT_EQ(world.journal().countOf(Service::qxFindClassMember), 0U);
}

TEST_F(JavaFunctionsTest, MemberThatIsNotFoundIsNone) {
    EXPECT_FALSE(IsJavaFunction(u"java.lang.String.nothing"));
    EXPECT_EQ(world.journal().countOf(Service::qxIsA), 0U);
}

TEST_F(JavaFunctionsTest, MemberOfAnotherClassThanJavaIsNone) {
    world.javaMember("java.lang.String", "length", "double");
    world.javaMember("java.lang.String", "Java", "Java");
    EXPECT_FALSE(IsJavaFunction(u"java.lang.String.length"));
    EXPECT_FALSE(IsJavaFunction(u"java.lang.String.Java"));
}

TEST_F(JavaFunctionsTest, NameIsReadAsAsciiWithSubstitutes) {
    world.javaMember("caf?", "valueOf");
    EXPECT_TRUE(IsJavaFunction(u"caf\u00E9.valueOf"));
    EXPECT_TRUE(IsJavaFunction(std::u16string(u"caf") + char16_t{0xD800} + u".valueOf"));
}

TEST_F(JavaFunctionsTest, BothValuesAreDestroyedWhateverTheAnswer) {
    for (const char16_t* name : {u"java.lang.String.valueOf", u"java.lang.String.nothing", u"java.none.valueOf"}) {
        IsJavaFunction(name);
        EXPECT_EQ(world.valuesAlive(), 0U);
    }
}

TEST_F(JavaFunctionsTest, NothingIsCaughtAndNothingIsLeft) {
    for (const Service service :
         {Service::toString, Service::qxCreateClassArray, Service::qxFindClassMember, Service::qxIsA}) {
        world.faults().failService(service, Fault::interrupt);
        EXPECT_THROW(IsJavaFunction(u"java.lang.String.valueOf"), InterruptException) << nameOf(service);
        world.faults().failService(service, Fault::standardException);
        EXPECT_THROW(IsJavaFunction(u"java.lang.String.valueOf"), std::runtime_error) << nameOf(service);
        EXPECT_EQ(world.valuesAlive(), 0U) << nameOf(service);
    }
}

TEST_F(JavaFunctionsTest, NothingIsEvaluatedOrCalled) {
    IsJavaFunction(u"java.lang.String.valueOf");
    EXPECT_THAT(world.evaluations(), IsEmpty());
    EXPECT_EQ(world.journal().countOf(Service::inGetValueFromCurrentWorkspace), 0U);
}

}  // namespace
