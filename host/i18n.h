// Internationalisation: conversion between UTF-16 text and the host's 8-bit text. Any thread.
//
// The default conversions use the 8-bit encoding in which the host keeps its names. The ASCII converters map
// ASCII to itself; a host whose names go beyond ASCII may let them carry its own encoding.
#pragma once

#include <string>
#include <string_view>

#include "host/exceptions.h"
#include "host/visibility.h"

namespace fl::i18n {

/// Raised by a converter that was told to refuse what it cannot convert.
class CONTEXTDATA_HOST_API ConversionException : public foundation::core::except::IException {
public:
    ConversionException();
    ConversionException(const ConversionException& other);
    ConversionException& operator=(const ConversionException& other);
    ~ConversionException() noexcept override;

    const boost::exception_detail::clone_base* clone() const override;
    [[noreturn]] void rethrow() const override;
};

/// Widens ASCII. With `refuse` set it throws `ConversionException` on anything else; without it, it substitutes.
class codecvt_ascii_to_ustring {
public:
    /// `refuse`: whether what cannot be converted is an error.
    explicit constexpr codecvt_ascii_to_ustring(bool refuse) noexcept : refuse_(refuse) {}
    /// As it was told.
    constexpr bool refuses() const noexcept { return refuse_; }

private:
    bool refuse_;
};

/// Narrows to ASCII; `refuse` as above.
class codecvt_ustring_to_ascii {
public:
    /// `refuse`: whether what cannot be converted is an error.
    explicit constexpr codecvt_ustring_to_ascii(bool refuse) noexcept : refuse_(refuse) {}
    /// As it was told.
    constexpr bool refuses() const noexcept { return refuse_; }

private:
    bool refuse_;
};

/// Narrows to the host's 8-bit encoding; `refuse` as above.
class codecvt_ustring_to_string {
public:
    /// `refuse`: whether what cannot be converted is an error.
    explicit constexpr codecvt_ustring_to_string(bool refuse) noexcept : refuse_(refuse) {}
    /// As it was told.
    constexpr bool refuses() const noexcept { return refuse_; }

private:
    bool refuse_;
};

/// UTF-16 to the host's 8-bit encoding, by the default conversion. Invalid text (a lone surrogate) may be
/// substituted or refused with `ConversionException`. A converter says which of the two, and may narrow to ASCII.
/// @{
CONTEXTDATA_HOST_API std::string to_string(std::u16string_view text);
CONTEXTDATA_HOST_API std::string to_string(std::u16string_view text, const codecvt_ustring_to_ascii& converter);
CONTEXTDATA_HOST_API std::string to_string(std::u16string_view text, const codecvt_ustring_to_string& converter);
/// @}

/// The host's 8-bit encoding to UTF-16. Bytes that are no text of that encoding are substituted or refused as above.
/// @{
CONTEXTDATA_HOST_API std::u16string to_ustring(std::string_view text);
CONTEXTDATA_HOST_API std::u16string to_ustring(std::string_view text, const codecvt_ascii_to_ustring& converter);
/// @}

}  // namespace fl::i18n
