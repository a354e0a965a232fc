#include "frontends/completion/ranking.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

using contextdata::completion::chosen;
using contextdata::completion::Item;
using contextdata::completion::Items;
using contextdata::completion::Kind;
using contextdata::completion::lowered;
using contextdata::completion::Match;
using contextdata::completion::sortKeyOf;
using contextdata::completion::Typed;
using testing::ElementsAre;
using testing::IsEmpty;

Match match(std::u16string_view typed, std::u16string_view name) { return Typed(typed).match(name); }

Item item(const char16_t* name, Kind kind = Kind::method) { return {name, kind}; }

Item inherited(const char16_t* name) {
    Item made = item(name);
    made.isInherited = true;
    return made;
}

std::vector<std::u16string> ranked(std::vector<Item> items, std::u16string_view typed) {
    std::vector<std::u16string> names;
    for (const Item& each : chosen(std::move(items), {typed, true})) {
        names.push_back(each.name);
    }
    return names;
}

TEST(Ranking, nothingTypedFitsEverythingEqually) {
    EXPECT_EQ(match(u"", u""), Match::beginning);
    EXPECT_EQ(match(u"", u"name"), Match::beginning);
}

TEST(Ranking, aNameThatBeginsSoFitsBest) {
    EXPECT_EQ(match(u"gro", u"groupby"), Match::beginning);
    EXPECT_EQ(match(u"groupby", u"groupby"), Match::beginning);
}

TEST(Ranking, letterCaseIsForgivenNext) {
    EXPECT_EQ(match(u"GRO", u"groupby"), Match::otherCase);
    EXPECT_EQ(match(u"gro", u"GroupBy"), Match::otherCase);
    EXPECT_EQ(match(u"ÄÖ", u"äöü"), Match::otherCase);
    EXPECT_EQ(match(u"κ", u"Κόμβος"), Match::otherCase);
    EXPECT_EQ(match(u"ж", u"Ж"), Match::otherCase);
    EXPECT_EQ(match(u"ё", u"Ё"), Match::otherCase);
}

TEST(Ranking, signsHaveNoCase) {
    EXPECT_EQ(lowered(u'×'), u'×');
    EXPECT_EQ(lowered(u'_'), u'_');
    EXPECT_EQ(lowered(u'@'), u'@');
    EXPECT_EQ(lowered(u'['), u'[');
    EXPECT_EQ(lowered(0xD835), 0xD835);
}

TEST(Ranking, lettersInTheirOrderFitWhenTheFirstIsRight) {
    EXPECT_EQ(match(u"gb", u"groupby"), Match::scattered);
    EXPECT_EQ(match(u"GB", u"groupby"), Match::scattered);
    EXPECT_EQ(match(u"rb", u"groupby"), Match::none);
    EXPECT_EQ(match(u"bg", u"groupby"), Match::none);
    EXPECT_EQ(match(u"gbzz", u"gb"), Match::none);
}

TEST(Ranking, oneLetterMayBeWrongMissingOrAddedAndTwoMayChangePlaces) {
    EXPECT_EQ(match(u"greup", u"groupby"), Match::mistyped) << "wrong";
    EXPECT_EQ(match(u"roup", u"groupby"), Match::mistyped) << "missing at the start";
    EXPECT_EQ(match(u"grooup", u"groupby"), Match::mistyped) << "added";
    EXPECT_EQ(match(u"gruop", u"groupby"), Match::mistyped) << "changed places";
    EXPECT_EQ(match(u"rgoup", u"groupby"), Match::mistyped) << "changed places at the start";
    EXPECT_EQ(match(u"xroup", u"groupby"), Match::mistyped) << "wrong at the start";
    EXPECT_EQ(match(u"ggroup", u"groupby"), Match::mistyped) << "added at the start";
    EXPECT_EQ(match(u"meanx", u"mean"), Match::mistyped) << "added at the end";
    EXPECT_EQ(match(u"meax", u"mean"), Match::mistyped) << "wrong at the end";
    EXPECT_EQ(match(u"MEAX", u"mean"), Match::mistyped) << "in other case";
}

TEST(Ranking, twoMistakesAreTooMany) {
    EXPECT_EQ(match(u"gxexp", u"groupby"), Match::none);
    EXPECT_EQ(match(u"meanxx", u"mean"), Match::none);
    EXPECT_EQ(match(u"rguop", u"groupby"), Match::none);
}

TEST(Ranking, fewerThanThreeLettersAreNotMistyped) {
    EXPECT_EQ(match(u"xr", u"groupby"), Match::none);
    EXPECT_EQ(match(u"xro", u"groupby"), Match::mistyped);
}

TEST(Ranking, whatIsLeftOutIsNoMistakeWhereItFitsBetter) { EXPECT_EQ(match(u"grup", u"groupby"), Match::scattered); }

TEST(Ranking, anEmptyNameFitsOnlyNothing) { EXPECT_EQ(match(u"abc", u""), Match::none); }

TEST(Ranking, lessCloseNamesAreOfferedOnlyWhenThereAreNoCloseOnes) {
    EXPECT_THAT(ranked({item(u"groupby"), item(u"Gb"), item(u"gbx")}, u"gb"), ElementsAre(u"gbx", u"Gb"));
    EXPECT_THAT(ranked({item(u"groupby"), item(u"glib"), item(u"other")}, u"gb"), ElementsAre(u"glib", u"groupby"));
}

TEST(Ranking, leftOutLettersComeBeforeMistakes) {
    EXPECT_THAT(ranked({item(u"abdx"), item(u"axbxc")}, u"abc"), ElementsAre(u"axbxc", u"abdx"));
}

TEST(Ranking, ownMembersComeBeforeInheritedOnes) {
    EXPECT_THAT(ranked({inherited(u"a"), item(u"z"), inherited(u"b"), item(u"c")}, u""),
                ElementsAre(u"c", u"z", u"a", u"b"));
}

TEST(Ranking, publicNamesComeBeforePrivateOnesBeforeSpecialOnes) {
    EXPECT_THAT(ranked({item(u"__len__"), item(u"_a"), item(u"__b"), item(u"z")}, u""),
                ElementsAre(u"z", u"__b", u"_a", u"__len__"));
    EXPECT_THAT(ranked({item(u"_own"), inherited(u"theirs")}, u""), ElementsAre(u"theirs", u"_own"));
}

TEST(Ranking, anUnderscoreSaysNothingInKeysAndFiles) {
    EXPECT_THAT(ranked({item(u"b", Kind::key), item(u"_a", Kind::key)}, u""), ElementsAre(u"_a", u"b"));
    EXPECT_THAT(ranked({item(u"b", Kind::file), item(u"_a", Kind::folder)}, u""), ElementsAre(u"_a", u"b"));
}

TEST(Ranking, argumentsComeFirstAmongEqualMatches) {
    EXPECT_THAT(ranked({item(u"key"), item(u"key2=", Kind::argument), item(u"Key=", Kind::argument)}, u"key"),
                ElementsAre(u"key2=", u"key", u"Key="));
    EXPECT_THAT(ranked({item(u"a"), item(u"_z=", Kind::argument)}, u""), ElementsAre(u"_z=", u"a"));
}

TEST(Ranking, theMatchOutweighsAllElse) {
    EXPECT_LT(sortKeyOf(inherited(u"__x__"), Match::beginning),
              sortKeyOf(item(u"x=", Kind::argument), Match::otherCase));
}

TEST(Ranking, whateverTheOrderTheAnswerIsTheSame) {
    std::vector<Item> items = {item(u"alpha"), inherited(u"Alpha"), item(u"_alpha"),
                               item(u"ALPHA"), item(u"alphabet"),   item(u"alpha=", Kind::argument),
                               item(u"beta")};
    const auto expected = ranked(items, u"alp");
    EXPECT_THAT(expected, ElementsAre(u"alpha=", u"alpha", u"alphabet", u"ALPHA", u"Alpha"));
    std::mt19937 random(7);
    for (int round = 0; round < 100; ++round) {
        std::shuffle(items.begin(), items.end(), random);
        EXPECT_EQ(ranked(items, u"alp"), expected);
    }
}

TEST(Ranking, ofSeveralItemsOfANameTheFirstIsKept) {
    const Items kept = chosen({item(u"a", Kind::keyword), item(u"a", Kind::variable)}, {u"", true});
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept.front().kind, Kind::keyword);
    EXPECT_EQ(chosen({item(u"a", Kind::keyword), item(u"a", Kind::variable)}, {}).front().kind, Kind::keyword);
}

TEST(Ranking, theItemsOfAnAnswerCarryWhatItGoesBy) {
    const Items items = chosen({inherited(u"ab"), item(u"ac")}, {u"a", true});
    ASSERT_EQ(items.size(), 2U);
    EXPECT_LT(items[0].sortKey, items[1].sortKey);
}

TEST(Ranking, withoutItOnlyExactBeginningsAreOfferedByName) {
    const Items items = chosen({inherited(u"ab"), item(u"Ac"), item(u"ac"), item(u"_a"), item(u"b")}, {u"a"});
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].name, u"ab");
    EXPECT_EQ(items[1].name, u"ac");
    EXPECT_EQ(items[0].sortKey, 0);
    EXPECT_THAT(chosen({item(u"b")}, {u"a"}), IsEmpty());
}

}  // namespace
