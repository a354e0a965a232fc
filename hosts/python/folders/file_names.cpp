#include "hosts/python/folders/file_names.h"

#include "host/i18n.h"

namespace python_host {

namespace {

constexpr bool refuseInvalid = true;

}  // namespace

std::optional<std::filesystem::path> pathOfText(std::u16string_view text) {
    try {
        return pathOfText(fl::i18n::to_string(text, fl::i18n::codecvt_ustring_to_ascii(refuseInvalid)));
    } catch (const fl::i18n::ConversionException&) {
        return std::nullopt;
    }
}

std::optional<std::filesystem::path> pathOfText(std::string_view text) {
    // The system would end the path at the zero, and so mean another one.
    const bool isPath = text.find('\0') == std::string_view::npos;
    return isPath ? std::optional<std::filesystem::path>(text) : std::nullopt;
}

std::optional<std::u16string> textOfPath(const std::filesystem::path& path) {
    try {
        return fl::i18n::to_ustring(path.native(), fl::i18n::codecvt_ascii_to_ustring(refuseInvalid));
    } catch (const fl::i18n::ConversionException&) {
        return std::nullopt;
    }
}

}  // namespace python_host
