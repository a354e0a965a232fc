#include "contextdata/method_info.h"

#include "contextdata/exclusion_tables.h"
#include "tests/support/world_test.h"

namespace {

using memory_host::Fault;
using memory_host::Service;
using ZELKContextData::MethodInfo;

class MethodInfoTest : public WorldTest {
protected:
    static zelk::COSInternedID name(const char* text) { return zelk::internal::makeInterned(text); }
};

TEST_F(MethodInfoTest, OptionsBeginWithPublicAccessAndNoPosition) {
    const MethodInfo::GetOptions options;
    EXPECT_THAT(options.accessibility, testing::ElementsAre(0));
    EXPECT_EQ(options.accessingClass, nullptr);
    EXPECT_EQ(options.context, MethodInfo::GetContext::none);
    EXPECT_FALSE(options.includeConstructors || options.includeOperatorOverloads || options.includeHidden);
}

TEST_F(MethodInfoTest, PositionsAreTheirCodes) {
    EXPECT_EQ(static_cast<int>(MethodInfo::GetContext::none), 0);
    EXPECT_EQ(static_cast<int>(MethodInfo::GetContext::beforeDot), 1);
    EXPECT_EQ(static_cast<int>(MethodInfo::GetContext::afterDot), 2);
    EXPECT_EQ(static_cast<int>(MethodInfo::GetContext::anyPosition), 3);
    static_assert(sizeof(MethodInfo::GetContext) == 4);
}

TEST_F(MethodInfoTest, EveryNameOfTheOperatorTableIsAnOverloadInBothForms) {
    for (const std::u16string& name : ZELKContextData::getZELKMethodsExcludeSet()) {
        EXPECT_TRUE(MethodInfo::isOperatorOverload(name));
        EXPECT_TRUE(MethodInfo::isOperatorOverload(std::string(name.begin(), name.end())));
    }
}

TEST_F(MethodInfoTest, OperatorOverloadsCountLetterCaseAndWholeNames) {
    for (const std::string name : {"Transpose", "Ne", "plus2", "plus ", "", "pay"}) {
        EXPECT_FALSE(MethodInfo::isOperatorOverload(name)) << name;
        EXPECT_FALSE(MethodInfo::isOperatorOverload(std::u16string(name.begin(), name.end()))) << name;
    }
}

TEST_F(MethodInfoTest, ConversionOfAnEightBitNameMayFail) {
    world.faults().failService(Service::toUstring, Fault::standardException);
    EXPECT_THROW(MethodInfo::isOperatorOverload(std::string("plus")), std::runtime_error);
    world.faults().failService(Service::toUstring, Fault::interrupt);
    EXPECT_THROW(MethodInfo::isOperatorOverload(std::string("plus")), foundation::core::except::InterruptException);
}

TEST_F(MethodInfoTest, OnlyTheConversionOfAnEightBitNameAsksTheHost) {
    const zelk::COSInternedID cls = name("double");
    world.journal().clear();
    MethodInfo::isOperatorOverload(std::u16string(u"plus"));
    MethodInfo::isClassToCompleteMethodsForBeforeDot(cls);
    MethodInfo::isClassToCompleteMethodsForAfterDot(cls);
    EXPECT_TRUE(world.journal().calls().empty());
    MethodInfo::isOperatorOverload(std::string("plus"));
    EXPECT_EQ(world.journal().calls().size(), 1U);
}

TEST_F(MethodInfoTest, BuiltInClassesAreNotCompletedBeforeADot) {
    for (const char* cls : {"double", "single", "int8", "uint8", "int16", "uint32", "int64", "uint64", "logical",
                            "char", "struct", "cell", "function_handle", "handle"}) {
        EXPECT_FALSE(MethodInfo::isClassToCompleteMethodsForBeforeDot(name(cls))) << cls;
    }
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForBeforeDot(name("bank.Account")));
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForBeforeDot(name("Double")));
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForBeforeDot(name("doubles")));
}

TEST_F(MethodInfoTest, TwoBuiltInClassesPassBecauseTheTableSpellsThemOtherwise) {
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForBeforeDot(name("uint16")));
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForBeforeDot(name("int32")));
    EXPECT_FALSE(MethodInfo::isClassToCompleteMethodsForBeforeDot(name("unit16")));
    EXPECT_FALSE(MethodInfo::isClassToCompleteMethodsForBeforeDot(name("in32")));
}

TEST_F(MethodInfoTest, EmptyClassNamePassesBothTests) {
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForBeforeDot({}));
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForAfterDot({}));
}

TEST_F(MethodInfoTest, EveryClassIsCompletedAfterADot) {
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForAfterDot(name("double")));
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForAfterDot(name("handle")));
    EXPECT_TRUE(MethodInfo::isClassToCompleteMethodsForAfterDot(name("bank.Account")));
}

}  // namespace
