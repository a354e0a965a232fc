// Widening of ASCII.
#include <gtest/gtest.h>

#include "hosts/python/ascii.h"

namespace {

using python_host::widenedAscii;

constexpr std::size_t longest = 40;

/// Letters that differ from place to place.
std::string lettersOf(std::size_t length) {
    std::string text;
    for (std::size_t place = 0; place < length; ++place) {
        text.push_back(static_cast<char>('a' + place % 26));
    }
    return text;
}

TEST(WidenedAscii, CarriesEachUnitOfATextOfAnyLength) {
    for (std::size_t length = 0; length <= longest; ++length) {
        const std::string text = lettersOf(length);
        EXPECT_EQ(widenedAscii(text), std::u16string(text.begin(), text.end())) << length;
    }
}

TEST(WidenedAscii, IsNothingForAByteBeyondAsciiAtAnyPlace) {
    for (std::size_t length = 1; length <= longest; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            std::string text = lettersOf(length);
            text[place] = '\x80';
            EXPECT_FALSE(widenedAscii(text)) << length << ", " << place;
        }
    }
}

TEST(WidenedAscii, KeepsZerosAndTheLastOfAscii) {
    using namespace std::string_literals;
    EXPECT_EQ(widenedAscii("\0a\x7F\0"s), u"\0a\u007F\0"s);
    EXPECT_EQ(widenedAscii("\0\x7Fnames\0\0"s), u"\0\u007Fnames\0\0"s);
}

}  // namespace
