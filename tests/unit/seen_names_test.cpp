#include "contextdata/introspection/seen_names.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>

namespace {

using contextdata::introspection::SeenNames;

/// Texts that stay where they are, as interned ones do.
class SeenNamesTest : public testing::Test {
protected:
    std::string_view interned(const std::string& text) { return texts.emplace_back(text); }

    bool insertAscii(std::string_view name) { return seen.insert(name, std::u16string(name.begin(), name.end())); }

    std::deque<std::string> texts;
    SeenNames seen;
};

TEST_F(SeenNamesTest, TellsTheFirstTimeFromTheOthers) {
    const std::string_view pay = interned("pay");
    EXPECT_TRUE(insertAscii(pay));
    EXPECT_FALSE(insertAscii(pay));
    EXPECT_TRUE(insertAscii(interned("Pay")));
    EXPECT_TRUE(insertAscii(interned("payment")));
    const std::string_view nothing = interned("");
    EXPECT_TRUE(insertAscii(nothing));
    EXPECT_FALSE(insertAscii(nothing));
}

TEST_F(SeenNamesTest, NamesThatAreConvertedToTheSameTextAreTheSameName) {
    EXPECT_TRUE(seen.insert(interned("pr\xC3\xA9"), u"pr??"));
    EXPECT_FALSE(seen.insert(interned("pr\xC3\xBC"), u"pr??"));
    EXPECT_TRUE(seen.insert(interned("pr\xC3\xA9t"), u"pr??t"));
}

TEST_F(SeenNamesTest, NamesBeyondAsciiAreComparedWithThoseBeforeAndAfterThem) {
    EXPECT_TRUE(insertAscii(interned("before?")));
    EXPECT_FALSE(seen.insert(interned("before\xE9"), u"before?"));
    EXPECT_TRUE(seen.insert(interned("after\xE9"), u"after?"));
    EXPECT_FALSE(insertAscii(interned("after?")));
    EXPECT_TRUE(insertAscii(interned("another")));
}

TEST_F(SeenNamesTest, NameBeyondAsciiIsKnownAgain) {
    const std::string_view name = interned("caf\xC3\xA9");
    EXPECT_TRUE(seen.insert(name, u"caf\u00E9"));
    EXPECT_FALSE(seen.insert(name, u"caf\u00E9"));
}

TEST_F(SeenNamesTest, ByteBeyondAsciiIsSeenAtEveryPlace) {
    constexpr std::size_t length = 17;  // two blocks of eight and one byte
    for (std::size_t place = 0; place < length; ++place) {
        SeenNames names;
        std::string text(length, 'x');
        std::u16string converted(length, u'x');
        text[place] = '\xE9';
        converted[place] = u'?';
        EXPECT_TRUE(names.insert(interned(text), converted));
        text[place] = '\xFC';
        EXPECT_FALSE(names.insert(interned(text), converted)) << place;
    }
}

TEST_F(SeenNamesTest, HoldsManyNames) {
    constexpr int count = 300'000;
    for (int number = 0; number < count; ++number) {
        ASSERT_TRUE(insertAscii(interned("name" + std::to_string(number)))) << number;
    }
    for (const std::string& text : texts) {
        ASSERT_FALSE(insertAscii(text)) << text;
    }
}

TEST_F(SeenNamesTest, HoldsAddressesThatLieSideBySide) {
    const std::string letters(100'000, 'x');
    for (std::size_t place = 0; place < letters.size(); ++place) {
        ASSERT_TRUE(insertAscii(std::string_view(&letters[place], 1)));
    }
    for (std::size_t place = 0; place < letters.size(); ++place) {
        ASSERT_FALSE(insertAscii(std::string_view(&letters[place], 1)));
    }
}

}  // namespace
