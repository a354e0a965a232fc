// Interned names, conversions between 8 and 16 bits, and names as people write them.
//
// Names are ASCII here. Where yours go further, convert both ways without loss; where you have a name table already,
// let `makeInterned` ask it.
#include <mutex>
#include <set>
#include <string>

#include "host/i18n.h"
#include "host/interned.h"
#include "host/name_resolution.h"

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

namespace zelk::nameresolution {

// No name denotes a class yet: ask what your language says about imports and the file that the scope stands for.
std::string omResolveAnyClass(const std::string& /*name*/, const FunctionScope* /*scope*/) { return {}; }

// No name carries a software-package qualification: there may be none in your language, and then this stays.
std::string getBaseClassNameFromFullName(std::string_view fullName) { return std::string(fullName); }
bool isSoftwarePackageQualifiedName(std::string_view /*name*/) noexcept { return false; }

}  // namespace zelk::nameresolution
