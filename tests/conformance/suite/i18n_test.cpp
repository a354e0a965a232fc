#include "host/i18n.h"

#include <string>
#include <thread>
#include <vector>

#include "tests/conformance/suite/exception_transport.h"
#include "tests/conformance/suite/suite.h"

namespace {

using namespace fl::i18n;
using Conversion = conformance::Conformance;
using ::testing::EndsWith;
using ::testing::StartsWith;

std::string allAscii() {
    std::string text;
    for (int c = 0; c < 0x80; ++c) {
        text.push_back(static_cast<char>(c));
    }
    return text;
}

const std::vector<std::u16string>& invalidTexts() {
    static const std::vector<std::u16string> texts = {
        {u'a', char16_t{0xD800}, u'z'},
        {u'a', char16_t{0xDFFF}, u'z'},
        {u'a', char16_t{0xDC00}, char16_t{0xD800}, u'z'},
    };
    return texts;
}

TEST_F(Conversion, KeepsAsciiWhateverTheConverter) {
    const std::string narrow = allAscii();
    const std::u16string wide(narrow.begin(), narrow.end());
    EXPECT_EQ(to_string(wide), narrow);
    EXPECT_EQ(to_ustring(narrow), wide);
    for (const bool refuse : {false, true}) {
        EXPECT_EQ(to_string(wide, codecvt_ustring_to_ascii(refuse)), narrow);
        EXPECT_EQ(to_string(wide, codecvt_ustring_to_string(refuse)), narrow);
        EXPECT_EQ(to_ustring(narrow, codecvt_ascii_to_ustring(refuse)), wide);
    }
}

TEST_F(Conversion, OfNothingIsNothing) {
    EXPECT_EQ(to_string(u""), "");
    EXPECT_EQ(to_ustring(""), u"");
    EXPECT_EQ(to_string(u"", codecvt_ustring_to_ascii(true)), "");
    EXPECT_EQ(to_string(u"", codecvt_ustring_to_string(true)), "");
    EXPECT_EQ(to_ustring("", codecvt_ascii_to_ustring(true)), u"");
}

TEST_F(Conversion, CarriesWhatTheHostsEncodingHolds) {
    const std::u16string text = provider().textBeyondAscii();
    CONFORMANCE_NEEDS(!text.empty(), "texts beyond ASCII");
    EXPECT_EQ(to_ustring(to_string(text)), text);
    EXPECT_EQ(to_ustring(to_string(text, codecvt_ustring_to_string(true))), text);
    EXPECT_EQ(to_string(text, codecvt_ustring_to_string(false)), to_string(text));
}

TEST_F(Conversion, BetweenAsciiAndMoreCarriesOrRefuses) {
    const std::u16string text = u"Gr\u00f6\u00dfe";
    try {
        const std::string narrow = to_string(text, codecvt_ustring_to_ascii(true));
        EXPECT_EQ(to_ustring(narrow, codecvt_ascii_to_ustring(true)), text) << "neither carried nor refused";
    } catch (const ConversionException&) {
        EXPECT_THROW(to_ustring("\xC3\xB6", codecvt_ascii_to_ustring(true)), ConversionException);
    }
}

TEST_F(Conversion, SubstitutesWhenItIsNotToRefuse) {
    for (const std::u16string& text : invalidTexts()) {
        for (const std::string& narrow :
             {to_string(text, codecvt_ustring_to_ascii(false)), to_string(text, codecvt_ustring_to_string(false))}) {
            EXPECT_THAT(narrow, StartsWith("a"));
            EXPECT_THAT(narrow, EndsWith("z"));
            EXPECT_GT(narrow.size(), 2U) << "dropped instead of substituted";
        }
    }
    for (const char* text : {"a\xFFz", "a\x80z", "a\xC3z"}) {
        const std::u16string wide = to_ustring(text, codecvt_ascii_to_ustring(false));
        EXPECT_EQ(wide.front(), u'a');
        EXPECT_EQ(wide.back(), u'z');
        EXPECT_GT(wide.size(), 2U);
    }
}

TEST_F(Conversion, RefusesInvalidTextWhenToldSo) {
    for (const std::u16string& text : invalidTexts()) {
        EXPECT_THROW(to_string(text, codecvt_ustring_to_ascii(true)), ConversionException);
        EXPECT_THROW(to_string(text, codecvt_ustring_to_string(true)), ConversionException);
    }
}

TEST_F(Conversion, ByDefaultSubstitutesOrRefusesInvalidText) {
    for (const std::u16string& text : invalidTexts()) {
        try {
            EXPECT_THAT(to_string(text), StartsWith("a"));
        } catch (const ConversionException&) {
            SUCCEED();
        }
    }
}

TEST_F(Conversion, FailuresTravel) { conformance::expectToTravel(ConversionException()); }

TEST_F(Conversion, ServesAnyThread) {
    std::vector<std::thread> threads;
    std::vector<int> wrong(4, 0);
    for (int& count : wrong) {
        threads.emplace_back([&count] {
            for (int round = 0; round < 500; ++round) {
                const std::string text = "name" + std::to_string(round);
                count += to_string(to_ustring(text), codecvt_ustring_to_ascii(true)) == text ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

}  // namespace
