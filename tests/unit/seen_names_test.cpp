#include "contextdata/introspection/seen_names.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using contextdata::introspection::SeenNames;

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
    SeenNames seen;
    EXPECT_TRUE(seen.insert(u"name7897"));
    EXPECT_TRUE(seen.insert(u"name52562"));
    EXPECT_FALSE(seen.insert(u"name7897"));
    EXPECT_FALSE(seen.insert(u"name52562"));
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
