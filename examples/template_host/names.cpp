// Interned names, conversions between 8 and 16 bits, and where a name ends in what people type.
//
// Names are ASCII here. Where yours go further, convert both ways without loss; where you have a name table already,
// let `makeInterned` ask it.
#include <mutex>
#include <set>
#include <string>

#include "host/array_library.h"
#include "host/i18n.h"
#include "host/interned.h"

zelk::COSInternedID zelk::internal::makeInterned(std::string_view name) {
    // Any thread may come, and an entry stays where it is until the process ends: so both are never destroyed.
    static auto& mutex = *new std::mutex;
    static auto& table = *new std::set<std::string, std::less<>>;
    const std::lock_guard lock(mutex);
    auto found = table.find(name);
    if (found == table.end()) {
        found = table.emplace(name).first;
    }
    return InternedAccess<IdEmptyPolicy>::fromEntry(found->c_str());
}

namespace fl::i18n {

namespace {

constexpr char16_t lastAscii = 0x7F;

std::string narrowed(std::u16string_view text, bool refuse) {
    std::string result;
    for (const char16_t unit : text) {
        if (unit > lastAscii && refuse) {
            throw ConversionException();
        }
        result.push_back(unit > lastAscii ? '?' : static_cast<char>(unit));
    }
    return result;
}

std::u16string widened(std::string_view text, bool refuse) {
    std::u16string result;
    for (const char c : text) {
        const auto unit = static_cast<unsigned char>(c);
        if (unit > lastAscii && refuse) {
            throw ConversionException();
        }
        result.push_back(unit > lastAscii ? u'?' : static_cast<char16_t>(unit));
    }
    return result;
}

}  // namespace

std::string to_string(std::u16string_view text) { return narrowed(text, true); }
std::string to_string(std::u16string_view text, const codecvt_ustring_to_ascii& converter) {
    return narrowed(text, converter.refuses());
}
std::string to_string(std::u16string_view text, const codecvt_ustring_to_string& converter) {
    return narrowed(text, converter.refuses());
}
std::u16string to_ustring(std::string_view text) { return widened(text, true); }
std::u16string to_ustring(std::string_view text, const codecvt_ascii_to_ustring& converter) {
    return widened(text, converter.refuses());
}

}  // namespace fl::i18n

// What a name is, in the language of your session.

std::size_t qxCountNameCharacters(std::string_view text) noexcept {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
    std::size_t length = 0;
    while (length < text.size() &&
           (isLetter(text[length]) || (length > 0 && text[length] >= '0' && text[length] <= '9'))) {
        ++length;
    }
    return length;
}
