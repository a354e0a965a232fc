#include "frontends/completion/item.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>

#include "frontends/completion/name_order.h"
#include "frontends/completion/sort_by_name.h"

namespace {

using contextdata::completion::comesBefore;
using contextdata::completion::Item;
using contextdata::completion::Items;
using contextdata::completion::Kind;
using contextdata::completion::merged;
using contextdata::completion::rangeOfPrefix;
using contextdata::completion::SharedText;
using contextdata::completion::sortByName;
using contextdata::completion::sortedOnce;
using contextdata::completion::without;
using testing::ElementsAre;
using testing::Pair;
using namespace std::string_literals;

Item item(const char16_t* name, Kind kind = Kind::property) { return {name, kind}; }

TEST(Items, areSortedByCodeUnitAndTheFirstOfANameIsKept) {
    EXPECT_THAT(sortedOnce({item(u"b"), item(u"a", Kind::constant), item(u"Z"), item(u"a")}),
                ElementsAre(item(u"Z"), item(u"a", Kind::constant), item(u"b")));
}

TEST(Items, ofTheFirstListWinWhenListsAreMerged) {
    EXPECT_THAT(merged({item(u"a", Kind::method), item(u"c")}, {item(u"a"), item(u"b")}),
                ElementsAre(item(u"a", Kind::method), item(u"b"), item(u"c")));
}

TEST(Items, areThoseOfTheOtherListWhenOneIsEmpty) {
    const Items some = {item(u"a", Kind::method), item(u"c")};
    EXPECT_EQ(merged(some, {}), some);
    EXPECT_EQ(merged({}, some), some);
}

TEST(Items, keepTheirFirstWhereverEqualOnesStand) {
    EXPECT_THAT(sortedOnce({item(u"b", Kind::key), item(u"a"), item(u"b"), item(u"c"), item(u"b")}),
                ElementsAre(item(u"a"), item(u"b", Kind::key), item(u"c")));
}

TEST(Items, areSortedFromAnyOrder) {
    std::mt19937 random(1);
    for (std::size_t count = 0; count <= 200; ++count) {
        std::vector<Item> items;
        std::map<std::u16string, Kind> firsts;
        for (std::size_t number = 0; number < count; ++number) {
            const std::string name = "attribute_number_" + std::to_string(random() % 150);
            const Kind kind = random() % 2 == 0 ? Kind::field : Kind::method;
            items.push_back({{name.begin(), name.end()}, kind});
            firsts.try_emplace(items.back().name, kind);
        }
        Items expected;
        for (const auto& [name, kind] : firsts) {
            expected.push_back({name, kind});
        }
        EXPECT_EQ(sortedOnce(items), expected) << count;
    }
}

TEST(Items, areSortedWhateverTheirNamesHaveInCommon) {
    std::mt19937 random(7);
    const std::u16string units = u"ab\u00E9\uFFFF\xD800" + std::u16string(1, u'\0');
    for (const std::size_t alphabet : {1U, 2U, 6U}) {
        for (const std::size_t longest : {3U, 9U, 40U}) {
            std::vector<Item> items;
            for (std::size_t number = 0; number < 400; ++number) {
                std::u16string name(number % 3 * 5, u'x');
                for (std::size_t length = random() % (longest + 1); length > 0; --length) {
                    name += units[random() % alphabet];
                }
                items.push_back({name, number % 2 == 0 ? Kind::field : Kind::method});
            }
            std::vector<Item> expected = items;
            std::stable_sort(expected.begin(), expected.end(),
                             [](const Item& left, const Item& right) { return left.name < right.name; });
            sortByName(items);
            EXPECT_EQ(items, expected) << alphabet << ", " << longest;
        }
    }
}

TEST(Items, areSortedWhenThereAreNone) {
    std::vector<Item> none;
    sortByName(none);
    EXPECT_THAT(none, ElementsAre());
}

TEST(SharedText, isOneTextForAllCopies) {
    const SharedText name(u"bank.Account of a length that takes memory of its own");
    const SharedText copy = name;
    EXPECT_EQ(&copy.text(), &name.text());
    EXPECT_FALSE(copy.empty());
}

TEST(SharedText, isEqualToAnotherOfTheSameUnits) {
    EXPECT_EQ(SharedText(u"Account"s), SharedText(u"Account"s));
    EXPECT_NE(SharedText(u"Account"s), SharedText(u"account"s));
    EXPECT_NE(SharedText(u"Account"s), SharedText());
}

TEST(SharedText, thatIsEmptyIsNone) {
    EXPECT_EQ(SharedText(u""s), SharedText());
    EXPECT_TRUE(SharedText(u""s).empty());
    EXPECT_EQ(SharedText().text(), u"");
}

TEST(NameOrder, isThatOfTheTextsThemselves) {
    std::vector<std::u16string> names = {u"", u"a", u"\uFFFF", u"\xD800"};
    const std::u16string longest = u"names that begin alike";
    for (std::size_t length = 1; length <= longest.size(); ++length) {
        names.push_back(longest.substr(0, length));
        names.push_back(longest.substr(0, length) + u"\u0100");
        names.push_back(longest.substr(0, length) + u"\x01");
    }
    for (const std::u16string& left : names) {
        for (const std::u16string& right : names) {
            EXPECT_EQ(comesBefore(left, right), left < right) << left.size() << ", " << right.size();
        }
    }
}

TEST(Items, withoutOthersAreThoseWhoseNamesTheOthersLack) {
    const Items items = {item(u"a"), item(u"b"), item(u"d"), item(u"e")};
    EXPECT_THAT(without(items, {item(u"A"), item(u"b", Kind::method), item(u"c"), item(u"e"), item(u"f")}),
                ElementsAre(item(u"a"), item(u"d")));
    EXPECT_EQ(without(items, {}), items);
    EXPECT_EQ(without({}, items), Items());
}

TEST(Items, aPrefixSelectsARangeWithLetterCase) {
    const Items items = {item(u"Ab"), item(u"a"), item(u"ab"), item(u"abc"), item(u"ac"), item(u"b")};
    EXPECT_THAT(rangeOfPrefix(items, u"ab"), Pair(2, 4));
    EXPECT_THAT(rangeOfPrefix(items, u""), Pair(0, 6));
    EXPECT_THAT(rangeOfPrefix(items, u"abcd"), Pair(4, 4));
    EXPECT_THAT(rangeOfPrefix(items, u"z"), Pair(6, 6));
    EXPECT_THAT(rangeOfPrefix({}, u"a"), Pair(0, 0));
}

TEST(Items, everyKindHasATextOfItsOwn) {
    EXPECT_STREQ(textOf(Kind::method), "method");
    EXPECT_STREQ(textOf(Kind::staticMethod), "static method");
    EXPECT_STREQ(textOf(Kind::property), "property");
    EXPECT_STREQ(textOf(Kind::constant), "constant");
    EXPECT_STREQ(textOf(Kind::enumerationMember), "enumeration member");
    EXPECT_STREQ(textOf(Kind::classType), "class");
    EXPECT_STREQ(textOf(Kind::function), "function");
    EXPECT_STREQ(textOf(Kind::space), "namespace");
    EXPECT_STREQ(textOf(Kind::field), "field");
}

}  // namespace
