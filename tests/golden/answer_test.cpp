// What stands beside the items of an answer: limits, details, reasons, and the rules that what is evaluated goes by.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frontends/completion/complete.h"
#include "tests/golden/golden_worlds.h"

namespace {

using contextdata::completion::complete;
using contextdata::completion::Completions;
using contextdata::completion::Item;
using contextdata::completion::Kind;
using contextdata::completion::Request;
using contextdata::completion::Rules;
using memory_host::Service;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using ZELKContextData::ResolvedClassID;

std::vector<std::u16string> namesOf(const Completions& answer) {
    std::vector<std::u16string> names;
    for (const Item& item : answer.items) {
        names.push_back(item.name);
    }
    return names;
}

class Answer : public testing::Test {
protected:
    golden::GoldenWorld& build(const char* name) {
        memory_host::setLeakReporter([](const std::string& report) { ADD_FAILURE() << report; });
        golden::build(world, name);
        return world;
    }

    Completions asked(std::u16string_view text, const Rules& rules) {
        return complete({.text = text, .cursor = text.size(), .file = {}, .rules = rules}, world);
    }

    golden::GoldenWorld world;
};

TEST_F(Answer, aLimitKeepsTheFirstAndCountsTheRest) {
    build("bank");
    const std::u16string_view text = u"savings.";
    const Completions all = complete({.text = text, .cursor = text.size(), .file = {}, .isRanked = true}, world);
    const Completions some =
        complete({.text = text, .cursor = text.size(), .file = {}, .isRanked = true, .limit = 2}, world);
    EXPECT_THAT(namesOf(some), ElementsAre(all.items[0].name, all.items[1].name));
    EXPECT_EQ(some.leftOut, all.items.size() - 2);
    EXPECT_EQ(all.leftOut, 0U);
    const Completions none = complete({.text = text, .cursor = text.size(), .file = {}, .limit = 0}, world);
    EXPECT_THAT(none.items, IsEmpty());
    EXPECT_EQ(none.leftOut, all.items.size());
    EXPECT_THAT(none.reason, IsEmpty()) << "there are some";
}

TEST_F(Answer, theAccessOfWhatIsNotEverybodysStandsBesideIt) {
    build("vaults");
    const std::u16string_view text = u"account.";
    const auto account = ResolvedClassID::fromLegacyString(std::string("bank.Account"));
    const Completions answer =
        complete({.text = text, .cursor = text.size(), .file = {}, .asker = account, .isRanked = true}, world);
    std::vector<std::u16string> secrets;
    for (const Item& item : answer.items) {
        if (item.detail == "private") {
            secrets.push_back(item.name);
        }
        EXPECT_EQ(item.detail == "protected", item.name == u"audit" || item.name == u"cache");
    }
    EXPECT_THAT(secrets, ElementsAre(u"forge", u"limit", u"pin", u"reset", u"secret"));
}

TEST_F(Answer, whatComesFromASuperclassSaysSo) {
    build("vaults");
    const std::u16string_view text = u"savings.";
    const auto savings = ResolvedClassID::fromLegacyString(std::string("bank.Savings"));
    const Completions answer = complete({.text = text, .cursor = text.size(), .file = {}, .asker = savings}, world);
    for (const Item& item : answer.items) {
        EXPECT_EQ(item.isInherited, item.definingClass.text() != u"bank.Savings") << testing::PrintToString(item.name);
    }
    EXPECT_THAT(answer.items, Not(IsEmpty()));
}

TEST_F(Answer, namesOfTheFrontEndAreOfferedOnlyWhereANameStandsAlone) {
    build("bank");
    const std::vector<Item> names = {{u"beta", Kind::variable}, {u"by", Kind::keyword}};
    for (const char16_t* text : {u"account.b", u"bank.", u"import b", u"f(", u"'b", u""}) {
        const std::u16string_view view = text;
        for (const Item& item :
             complete({.text = view, .cursor = view.size(), .file = {}, .names = names}, world).items) {
            EXPECT_NE(item.kind, Kind::variable) << testing::PrintToString(std::u16string(text));
        }
    }
}

TEST_F(Answer, codeRunsOnlyWhereTheRulesLetIt) {
    build("desk");
    EXPECT_THAT(asked(u"rows().", {}).items, IsEmpty());
    EXPECT_EQ(world.world().journal().countOf(Service::inEvalExp), 0U);
    EXPECT_EQ(namesOf(asked(u"rows().", {.runsCode = true})), namesOf(asked(u"rows[2].", {})));
}

TEST_F(Answer, withoutTheWalkTheEvaluationDecidesAboutEveryMember) {
    golden::GoldenWorld& bank = build("bank");
    EXPECT_THAT(asked(u"account.owner.", {}).items, Not(IsEmpty()));
    EXPECT_THAT(asked(u"account.owner.", {.walks = false}).items, IsEmpty());
    bank.evaluates(u"account.owner", [&bank] { return bank.world().object("bank.Currency"); });
    EXPECT_THAT(namesOf(asked(u"account.owner.", {.walks = false})), ElementsAre(u"EUR", u"convert", u"symbol"));
    EXPECT_THAT(asked(u"account.", {.walks = false}).items, Not(IsEmpty())) << "a variable is no member";
}

TEST_F(Answer, aRefusalNamesTheRules) {
    golden::GoldenWorld& bank = build("bank");
    bank.evaluates(u"nothing", [] { return qxUniqueArray(); });
    EXPECT_EQ(asked(u"account.owner.", {.name = u"mean", .walks = false}).reason,
              u"the policy 'mean' refuses to evaluate 'account.owner'");
    EXPECT_EQ(asked(u"account().", {.name = u"mean"}).reason,
              u"the policy 'mean' refuses to evaluate what stands before the dot");
    EXPECT_EQ(asked(u"account()['", {}).reason, u"the host refuses to evaluate what stands before the bracket");
}

TEST_F(Answer, namesInReasonsAreCut) {
    build("bank");
    const std::u16string text = std::u16string(100, u'x') + u".";
    EXPECT_EQ(asked(text, {}).reason, u"'" + std::u16string(60, u'x') + u"…' is not defined");
}

}  // namespace
