#include "host/i18n.h"
#include "host/text.h"
#include "tests/python_host/session.h"

namespace {

using namespace session;
using namespace fl::i18n;

using Texts = PythonTest;

TEST_F(Texts, ConvertBothWays) {
    for (const char* text : {"", "plain", "Größe", "名前", "a\U0001F600b"}) {
        EXPECT_EQ(to_string(to_ustring(text)), text);
        EXPECT_EQ(to_string(to_ustring(text, codecvt_ascii_to_ustring(true)), codecvt_ustring_to_ascii(true)), text);
    }
    EXPECT_EQ(to_ustring("a\U0001F600"), u"a\U0001F600");
}

TEST_F(Texts, InvalidUtf16IsSubstitutedOrRefused) {
    const std::u16string lone[] = {{u'a', char16_t{0xD800}}, {char16_t{0xDC00}, u'b'}, {char16_t{0xD800}, u'c'}};
    for (const std::u16string& text : lone) {
        EXPECT_THAT(to_string(text), ::testing::HasSubstr("\xEF\xBF\xBD"));
        EXPECT_THROW(to_string(text, codecvt_ustring_to_ascii(true)), ConversionException);
    }
}

TEST_F(Texts, InvalidUtf8IsSubstitutedOrRefused) {
    for (const char* text : {"\xFF", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE2\x82z"}) {
        EXPECT_NE(to_ustring(text).find(u'\uFFFD'), std::u16string::npos) << text;
        EXPECT_THROW(to_ustring(text, codecvt_ascii_to_ustring(true)), ConversionException) << text;
    }
    EXPECT_EQ(to_ustring("\xFFok"), u"\uFFFDok");
}

TEST_F(Texts, OfValuesAreRead) {
    run("import numpy\nclass S(str): pass");
    EXPECT_TRUE(isNonMissingScalarText(value("'a\U0001F600ä'").get()));
    EXPECT_EQ(getScalarText(value("'a\U0001F600ä'").get()), u"a\U0001F600ä");
    EXPECT_EQ(getScalarText(value("numpy.str_('x')").get()), u"x");
    EXPECT_FALSE(isNonMissingScalarText(value("S('x')").get()));
    EXPECT_FALSE(isNonMissingScalarText(value("b'x'").get()));
}

TEST_F(Texts, ThatAreNoneSayWhy) {
    const auto identifier = [](const std::string& expression) -> std::string {
        try {
            getScalarText(value(expression).get());
        } catch (const TextException& failure) {
            EXPECT_STREQ(failure.getComponent(), "OSTREL:string");
            return failure.getIdentifier();
        }
        return "none";
    };
    EXPECT_EQ(identifier("None"), "MissingNotSupported");
    EXPECT_EQ(identifier("3"), "MustBeStringScalarOrCharacterVector");
    EXPECT_EQ(identifier("['a']"), "MustBeStringScalarOrCharacterVector");
}

TEST_F(Texts, InternedTwiceAreOne) {
    EXPECT_EQ(id("name"), id("name"));
    EXPECT_NE(id("name"), id("other"));
    EXPECT_STREQ(id("name").c_str(), "name");
}

}  // namespace
