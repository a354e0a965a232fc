// Conversions of the in-memory host, and what the library makes of any UTF-16 text that is given for a name.
#include <algorithm>
#include <optional>
#include <string>

#include "contextdata/introspection.h"
#include "contextdata/resolved_class_id.h"
#include "host/i18n.h"
#include "hosts/memory/world.h"
#include "tests/fuzz/expect.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/plain_utf.h"
#include "tests/fuzz/target.h"

namespace {

using namespace fl::i18n;
using namespace fuzz;
using ZELKContextData::ResolvedClassID;

/// What a conversion gives; nothing when it refuses.
template <class Convert>
auto outcome(Convert convert) -> std::optional<decltype(convert())> {
    try {
        return convert();
    } catch (const ConversionException&) {
        return std::nullopt;
    }
}

bool isAscii(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t u) { return u < 0x80; });
}
bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Half characters replaced, the rest as it is.
std::u16string mended(const std::u16string& text) {
    std::u16string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (pointsOf(std::u16string_view(text).substr(index, 1))) {
            result.push_back(text[index]);
        } else if (pointsOf(std::u16string_view(text).substr(index, 2)) && index + 1 < text.size()) {
            result.append(text, index++, 2);
        } else {
            result.push_back(u'\uFFFD');
        }
    }
    return result;
}

void checkNarrowing(const std::u16string& text) {
    const std::string what = " of " + shown(text);
    const std::optional<Points> points = pointsOf(text);
    const std::optional<std::string> exact = points ? std::optional(utf8Of(*points)) : std::nullopt;
    expectEqual(outcome([&] { return to_string(text); }), exact, "the default conversion" + what);
    expectEqual(outcome([&] { return to_string(text, codecvt_ustring_to_string(true)); }), exact, "refusing" + what);
    expectEqual(outcome([&] { return to_string(text, codecvt_ustring_to_string(false)); }),
                std::optional(narrow(mended(text))), "substituting" + what);
    expectEqual(outcome([&] { return to_string(text, codecvt_ustring_to_ascii(false)); }),
                std::optional(narrowAscii(text)), "substituting in ASCII" + what);
    expectEqual(outcome([&] { return to_string(text, codecvt_ustring_to_ascii(true)); }),
                isAscii(text) ? std::optional(narrowAscii(text)) : std::nullopt, "refusing beyond ASCII" + what);
    if (exact) {
        expectEqual(to_ustring(*exact), text, "there and back" + what);
    }
}

void checkWidening(const std::string& bytes) {
    const std::string what = " of " + shown(wideAscii(bytes));
    const std::optional<Points> points = pointsOf(bytes);
    expectEqual(outcome([&] { return to_ustring(bytes); }), points ? std::optional(utf16Of(*points)) : std::nullopt,
                "widening" + what);
    expectEqual(outcome([&] { return to_ustring(bytes, codecvt_ascii_to_ustring(false)); }),
                std::optional(wideAscii(bytes)), "widening with substitutes" + what);
    expectEqual(outcome([&] { return to_ustring(bytes, codecvt_ascii_to_ustring(true)); }),
                isAscii(bytes) ? std::optional(wideAscii(bytes)) : std::nullopt, "widening ASCII" + what);
}

void checkNames(const std::u16string& text) {
    const std::string what = " of " + shown(text);
    const std::size_t dot = text.rfind(u'.');
    expectEqual(ZELKIntrospection::getConstructorName(text), dot == std::u16string::npos ? text : text.substr(dot + 1),
                "the constructor" + what);
    expectEqual(ResolvedClassID::isAlreadyResolved(text), narrowAscii(text).find(':') != std::string::npos,
                "qualification" + what);
    const ResolvedClassID known = ResolvedClassID::fromKnownResolvedClassID(text);
    expectEqual(known.get().view(), std::string_view(narrowAscii(text).c_str()), "the identity" + what);
    expect(!ZELKIntrospection::isZELKClass(text), "no class" + what);
    expect(!ZELKIntrospection::isZELKNamespace(text), "no namespace" + what);
    bool flag = false;
    expect(!ZELKIntrospection::hasMethod(text, std::string("m"), flag) && !flag, "no method" + what);
    try {
        ResolvedClassID::fromLegacyString(text);
        fail("an identity of no class" + what);
    } catch (const ResolvedClassID::BadClassNameException& failure) {
        expectEqual(failure.getBadClassName(), narrowAscii(text), "the bad name" + what);
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const memory_host::World world;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::u16string text;
    for (std::size_t index = 0; index + 1 < size; index += 2) {
        text.push_back(static_cast<char16_t>(data[index] | data[index + 1] << 8));
    }
    Input input(data, size);
    for (const std::u16string& each : {text, input.text(size)}) {
        checkNarrowing(each);
        // A name holds no zero byte.
        if (each.find(u'\0') == std::u16string::npos) {
            checkNames(each);
        }
    }
    checkWidening(bytes);
    return 0;
}
