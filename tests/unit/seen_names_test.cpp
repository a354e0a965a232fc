#include "contextdata/introspection/seen_names.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using contextdata::introspection::SeenNames;

std::u16string nameOf(int number) {
    const std::string digits = std::to_string(number);
    return u"name" + std::u16string(digits.begin(), digits.end());
}

TEST(SeenNames, TellsTheFirstTimeFromTheOthers) {
    SeenNames seen;
    EXPECT_TRUE(seen.insert(u"pay"));
    EXPECT_FALSE(seen.insert(u"pay"));
    EXPECT_TRUE(seen.insert(u"Pay"));
    EXPECT_TRUE(seen.insert(u"payment"));
    EXPECT_TRUE(seen.insert(u""));
    EXPECT_FALSE(seen.insert(u""));
}

TEST(SeenNames, KeepsItsOwnCopyOfAName) {
    SeenNames seen;
    std::u16string name = u"aNameThatIsTooLongForTheStringItself";
    EXPECT_TRUE(seen.insert(name));
    name[0] = u'b';
    EXPECT_TRUE(seen.insert(name));
    EXPECT_FALSE(seen.insert(u"aNameThatIsTooLongForTheStringItself"));
}

TEST(SeenNames, TellsNamesOfOneHashApart) {
    // Of so many names, ten pairs or so share a hash of 32 bits, whatever function it is.
    constexpr int count = 300'000;
    SeenNames seen;
    for (int number = 0; number < count; ++number) {
        ASSERT_TRUE(seen.insert(nameOf(number))) << number;
    }
    for (int number = 0; number < count; ++number) {
        ASSERT_FALSE(seen.insert(nameOf(number))) << number;
    }
}

TEST(SeenNames, HoldsManyNamesThatDifferInOneUnit) {
    SeenNames seen;
    for (char16_t unit = 1; unit < 0xFFFF; ++unit) {
        EXPECT_TRUE(seen.insert(std::u16string(20, u'x') + unit));
    }
    for (char16_t unit = 1; unit < 0xFFFF; ++unit) {
        EXPECT_FALSE(seen.insert(std::u16string(20, u'x') + unit));
    }
}

}  // namespace
