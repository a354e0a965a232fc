// The sizes of a property's validation, as numbers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "contextdata/property_info.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ZELKContextData::PropertyInfo;

constexpr std::uint64_t any = std::numeric_limits<std::uint64_t>::max();

std::vector<std::uint64_t> cast(std::vector<std::u16string> sizes) {
    return PropertyInfo::castSizeStringToIntegers(sizes);
}

TEST(PropertyOptions, BeginWithPublicAccessToReadOrWrite) {
    const PropertyInfo::GetOptions options;
    EXPECT_THAT(options.accessibility, ElementsAre(0));
    EXPECT_THAT(options.accessKinds, ElementsAre(0, 1));
    EXPECT_EQ(options.accessingClass, nullptr);
    EXPECT_FALSE(options.includeHidden);
}

TEST(SizeStrings, NumbersColonsAndNames) {
    EXPECT_THAT(cast({u"1", u":", u"n"}), ElementsAre(1, any, any));
    EXPECT_THAT(cast({u"rows_2", u"N", u"0", u"007"}), ElementsAre(any, any, 0, 7));
}

TEST(SizeStrings, BlanksAroundANumberAreTrimmed) {
    EXPECT_THAT(cast({u" 3 "}), ElementsAre(3));
    EXPECT_THAT(cast({u"\t\n\v\f\r4\r\f\v\n\t"}), ElementsAre(4));
}

TEST(SizeStrings, BlanksAreTheSpaceAndTheUnitsFromTheTabToTheCarriageReturn) {
    for (char16_t unit = 0; unit <= 0xA0; ++unit) {
        const bool isBlank = unit == u' ' || (unit >= u'\t' && unit <= u'\r');
        const bool isDigit = unit >= u'0' && unit <= u'9';
        if (!isDigit) {
            const auto extents = isBlank ? std::vector<std::uint64_t>{7} : std::vector<std::uint64_t>{};
            EXPECT_EQ(cast({u"7" + std::u16string(1, unit)}), extents) << static_cast<int>(unit);
        }
    }
}

TEST(SizeStrings, BlanksAreTrimmedOfNumbersOnly) {
    EXPECT_THAT(cast({u" :"}), IsEmpty());
    EXPECT_THAT(cast({u" n"}), IsEmpty());
    EXPECT_THAT(cast({u"n "}), IsEmpty());
    EXPECT_THAT(cast({u"\u00A03"}), IsEmpty());  // a blank, but no ASCII one
    EXPECT_THAT(cast({u"1 2"}), IsEmpty());
}

TEST(SizeStrings, OneBadTextEmptiesTheWholeResult) {
    EXPECT_THAT(cast({u"3", u"x-1"}), IsEmpty());
    EXPECT_THAT(cast({u"3", u""}), IsEmpty());
    EXPECT_THAT(cast({u"", u"3"}), IsEmpty());
    EXPECT_THAT(cast({u"   "}), IsEmpty());
    EXPECT_THAT(cast({u"-1"}), IsEmpty());
    EXPECT_THAT(cast({u"+1"}), IsEmpty());
    EXPECT_THAT(cast({u"1.0"}), IsEmpty());
    EXPECT_THAT(cast({u"::"}), IsEmpty());
}

TEST(SizeStrings, NameMustStartWithAnAsciiLetter) {
    EXPECT_THAT(cast({u"_a"}), IsEmpty());
    EXPECT_THAT(cast({u"2a"}), IsEmpty());
    EXPECT_THAT(cast({u"a.b"}), IsEmpty());
    EXPECT_THAT(cast({u"a-1"}), IsEmpty());
    EXPECT_THAT(cast({u"\u00E4b"}), IsEmpty());
    EXPECT_THAT(cast({u"a\u00E4"}), IsEmpty());
    EXPECT_THAT(cast({u"\uFF13"}), IsEmpty());  // a digit, but no ASCII one
}

TEST(SizeStrings, NumbersEndWithThirtyTwoBits) {
    EXPECT_THAT(cast({u"4294967295"}), ElementsAre(4294967295U));
    EXPECT_THAT(cast({u"4294967296"}), IsEmpty());
    EXPECT_THAT(cast({u"99999999999999999999999"}), IsEmpty());
    EXPECT_THAT(cast({u"00000000000000000000000005"}), ElementsAre(5));
}

TEST(SizeStrings, EachTextHasItsNumberInItsPlace) {
    EXPECT_THAT(cast({u"3", u":", u"3", u"z9", u"1"}), ElementsAre(3, any, 3, any, 1));
    EXPECT_EQ(any, ~std::uint64_t{0});
}

TEST(SizeStrings, NothingGivesNothing) { EXPECT_THAT(cast({}), IsEmpty()); }

}  // namespace
