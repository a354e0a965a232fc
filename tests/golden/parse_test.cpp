#include "frontends/completion/parse.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using contextdata::completion::parse;
using contextdata::completion::ParsedText;
using contextdata::completion::Refusal;
using contextdata::completion::Wanted;
using testing::ElementsAre;
using testing::IsEmpty;

ParsedText parseAll(std::u16string_view text) { return parse(text, text.size()); }

Refusal refusalOf(std::u16string_view text) { return parseAll(text).refusal; }

TEST(Parse, splitsAChainFromTheFragmentAfterItsLastDot) {
    const ParsedText parsed = parseAll(u"one.two.thr");
    EXPECT_EQ(parsed.refusal, Refusal::none);
    EXPECT_THAT(parsed.chain, ElementsAre(u"one", u"two"));
    EXPECT_EQ(parsed.fragment, u"thr");
    EXPECT_EQ(parsed.start, 8U);
    EXPECT_EQ(parsed.end, 11U);
}

TEST(Parse, anEmptyFragmentStandsAtTheCursor) {
    const ParsedText parsed = parseAll(u"one. ");
    EXPECT_THAT(parsed.chain, ElementsAre(u"one"));
    EXPECT_EQ(parsed.fragment, u"");
    EXPECT_EQ(parsed.start, 5U);
    EXPECT_EQ(parsed.end, 5U);
}

TEST(Parse, ignoresWhatFollowsTheCursor) {
    const ParsedText parsed = parse(u"one.twofold)'", 7);
    EXPECT_EQ(parsed.fragment, u"two");
    EXPECT_EQ(parsed.end, 7U);
}

TEST(Parse, aCursorBeyondTheEndIsTheEnd) { EXPECT_EQ(parse(u"a.b", 99).end, 3U); }

TEST(Parse, blanksMayStandAroundDots) { EXPECT_THAT(parseAll(u"one \t. two\f.").chain, ElementsAre(u"one", u"two")); }

TEST(Parse, aLineEndBeginsAnew) {
    EXPECT_EQ(refusalOf(u"one\n.two"), Refusal::danglingDot);
    EXPECT_EQ(parseAll(u"one.\r\ntwo").wanted, Wanted::names);
    EXPECT_THAT(parseAll(u"one.\ntwo.").chain, ElementsAre(u"two"));
}

TEST(Parse, operatorsBracketsAndWordsBeginAnew) {
    EXPECT_THAT(parseAll(u"f(x.").chain, ElementsAre(u"x"));
    EXPECT_THAT(parseAll(u"a.b+c.").chain, ElementsAre(u"c"));
    EXPECT_THAT(parseAll(u"return a.").chain, ElementsAre(u"a"));
    EXPECT_THAT(parseAll(u"f() if a.").chain, ElementsAre(u"a"));
    EXPECT_THAT(parseAll(u"a.b c.d.").chain, ElementsAre(u"c", u"d"));
    EXPECT_THAT(parseAll(u"1 if a.").chain, ElementsAre(u"a"));
    EXPECT_THAT(parseAll(u"from . import a.").chain, ElementsAre(u"a"));
    EXPECT_THAT(parseAll(u"'text' in a.").chain, ElementsAre(u"a"));
}

TEST(Parse, anyUnitBeyondAsciiIsPartOfAName) {
    EXPECT_THAT(parseAll(u"größe.κ𝒙.").chain, ElementsAre(u"größe", u"κ𝒙"));
    const std::u16string lone = {u'a', char16_t(0xD800), u'.'};
    EXPECT_THAT(parseAll(lone).chain, ElementsAre(lone.substr(0, 2)));
    EXPECT_EQ(parse(u"a.𝒙", 3).fragment.size(), 1U) << "a cursor inside a pair";
}

TEST(Parse, aNameWithoutADotIsWantedWhileItIsTyped) {
    const ParsedText parsed = parseAll(u"two = one");
    EXPECT_EQ(parsed.wanted, Wanted::names);
    EXPECT_EQ(parsed.refusal, Refusal::none);
    EXPECT_EQ(parsed.fragment, u"one");
    EXPECT_EQ(parsed.start, 6U);
    EXPECT_THAT(parsed.chain, IsEmpty());
    for (const char16_t* text :
         {u"def one", u"class one", u"with x as one", u"one ", u".one", u"1one", u"from x import a as o"}) {
        EXPECT_NE(parseAll(text).wanted, Wanted::names) << testing::PrintToString(std::u16string(text));
    }
}

TEST(Parse, literalsAreOfTheTypeOfTheirStandIn) {
    EXPECT_EQ(parseAll(u"[f(), 'a'].").expression, u"[]");
    EXPECT_EQ(parseAll(u"rb'a'.").expression, u"b''");
    EXPECT_EQ(parseAll(u"{1: 2}.").expression, u"{}");
    EXPECT_EQ(parseAll(u"{1, 2}.").expression, u"{1, 2}");
    EXPECT_EQ(parseAll(u"[1, 2][0].").expression, u"[1, 2][0]");
    EXPECT_FALSE(parseAll(u"[1, 2][0].").runsCode);
    EXPECT_TRUE(parseAll(u"[f()][0].").runsCode);
    EXPECT_TRUE(parseAll(u"(yield x).").runsCode);
    EXPECT_FALSE(parseAll(u"(x.y).").runsCode);
}

TEST(Parse, aWholeKeyIsAllBehindTheBracket) {
    for (const char16_t* key : {u"", u"(", u"('a', ", u"('a', 'b", u"b'", u"'a', 'b", u"1, ", u"('a', b'"}) {
        const std::u16string text = std::u16string(u"x.y[ ") + key;
        const ParsedText parsed = parseAll(text);
        EXPECT_EQ(parsed.wanted, Wanted::wholeKeys) << testing::PrintToString(text);
        EXPECT_EQ(parsed.fragment, key);
        EXPECT_THAT(parsed.chain, ElementsAre(u"x", u"y"));
    }
    for (const char16_t* text :
         {u"x[f", u"x[1", u"x[a, ", u"x[f(", u"x['a' + ", u"[", u"x['a'", u"x[\"\"\"", u"x[f'"}) {
        EXPECT_NE(parseAll(text).wanted, Wanted::wholeKeys) << testing::PrintToString(std::u16string(text));
    }
}

TEST(Parse, refusesTextThatEndsInNoName) {
    EXPECT_EQ(refusalOf(u""), Refusal::noName);
    EXPECT_EQ(refusalOf(u"one.two "), Refusal::noName);
    EXPECT_EQ(refusalOf(u"one.two("), Refusal::noName);
    EXPECT_EQ(refusalOf(u"f()"), Refusal::noName);
}

TEST(Parse, refusesStrings) {
    for (const char16_t* text : {u"'a.", u"\"a.", u"f'{a.", u"rb\"a\\\".", u"'''a\n'a''.", u"\"\"\"a\".",
                                 u"x = 'it\\'s a.", u"r'a\\'.", u"'a\\\nb.", u"'a\\\r\nb.", u"'''a\\'''.", u"'\\"}) {
        EXPECT_EQ(refusalOf(text), Refusal::insideString) << testing::PrintToString(std::u16string(text));
    }
}

TEST(Parse, aStringThatIsClosedOrBrokenOffLetsTheNextExpressionBegin) {
    EXPECT_THAT(parseAll(u"'a' + b.").chain, ElementsAre(u"b"));
    EXPECT_THAT(parseAll(u"'''a'b''' + b.").chain, ElementsAre(u"b"));
    EXPECT_THAT(parseAll(u"'' + b.").chain, ElementsAre(u"b"));
    EXPECT_THAT(parseAll(u"'a\nb.").chain, ElementsAre(u"b"));
}

TEST(Parse, refusesComments) {
    EXPECT_EQ(refusalOf(u"x # a."), Refusal::insideComment);
    EXPECT_EQ(refusalOf(u"#"), Refusal::insideComment);
    EXPECT_THAT(parseAll(u"# it's\na.").chain, ElementsAre(u"a"));
    EXPECT_THAT(parseAll(u"'#' + a.").chain, ElementsAre(u"a"));
}

TEST(Parse, refusesNumbers) {
    for (const char16_t* text : {u"1.", u"12", u"1..", u"1.real", u"1.5.r", u".5.", u"0x1F.", u"1e5.", u"1_0.",
                                 u"1 .real", u"a.5", u"1j.a.b"}) {
        EXPECT_EQ(refusalOf(text), Refusal::afterNumber) << testing::PrintToString(std::u16string(text));
    }
}

TEST(Parse, refusesWhatHasToBeEvaluated) {
    for (const char16_t* text :
         {u"f().", u"a[0].", u"{}.x", u"\"text\".", u"(a).b.c.", u"f() . a", u"b'x'.", u"a.b().c"}) {
        EXPECT_EQ(refusalOf(text), Refusal::needsEvaluation) << testing::PrintToString(std::u16string(text));
    }
}

TEST(Parse, refusesADotWithNoNameBeforeIt) {
    for (const char16_t* text : {u".", u".a", u"a..", u"a..b", u"a..b.", u"a. .", u"+.", u"(.x", u"f()..x", u"..."}) {
        EXPECT_EQ(refusalOf(text), Refusal::danglingDot) << testing::PrintToString(std::u16string(text));
    }
}

}  // namespace
