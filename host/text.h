// Text support: values that hold one text. Interpreter thread.
#pragma once

#include <string>

#include "host/array_library.h"
#include "host/exceptions.h"
#include "host/visibility.h"

/// Raised when text is asked of a value that holds none.
///
/// The component is always "OSTREL:string"; the identifier is "MissingNotSupported" for a missing string and
/// "MustBeStringScalarOrCharacterVector" for anything else that is no text. Both are permanent texts.
class CONTEXTDATA_HOST_API TextException : public foundation::core::except::IException {
public:
    /// `identifier` is one of the two, and permanent.
    explicit TextException(const char* identifier);
    TextException(const TextException& other);
    TextException& operator=(const TextException& other);
    ~TextException() noexcept override;

    const boost::exception_detail::clone_base* clone() const override;
    [[noreturn]] void rethrow() const override;

    /// Permanent, zero-terminated, never null.
    /// @{
    const char* getComponent() const noexcept;
    const char* getIdentifier() const noexcept;
    /// @}

private:
    const char* identifier_;
};

/// Whether a value is one text that is there: a char row vector, or a string scalar that is not missing.
CONTEXTDATA_HOST_API bool isNonMissingScalarText(const qxArray* value);

/// The text of a value that `isNonMissingScalarText` accepts; throws `TextException` for any other.
CONTEXTDATA_HOST_API std::u16string getScalarText(const qxArray* value);
