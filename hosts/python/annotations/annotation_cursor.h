// The words and signs of an annotation that was written as text.
#pragma once

#include <Python.h>

#include <cstddef>
#include <string_view>

#include "hosts/python/references.h"

namespace python_host {

/// Moves over a text. What cannot be taken leaves the cursor where it is, blanks aside.
class AnnotationCursor {
public:
    explicit AnnotationCursor(std::string_view text) noexcept : text_(text) {}

    std::size_t position() const noexcept { return position_; }
    std::string_view textSince(std::size_t start) const noexcept { return text_.substr(start, position_ - start); }

    void skipBlanks() noexcept;
    bool atEnd() noexcept;
    /// The next sign after blanks; a zero byte at the end.
    char peek() noexcept;
    bool take(std::string_view sign) noexcept;

    /// Names joined by dots; empty when there is none.
    std::string_view takeDottedName() noexcept;

    /// Whether a string begins here, its prefix included.
    bool atString() noexcept;
    /// The str or bytes that a plain string on one line denotes; empty, with the cursor anywhere, for any other.
    Ref takeString();

    bool atNumber() noexcept;
    /// A whole number, perhaps with a sign; empty, with the cursor anywhere, for any other.
    Ref takeNumber();

    /// Everything up to the comma or the closing bracket that ends it, inner brackets and strings included. False when
    /// the brackets do not match.
    bool takeBalanced(std::string_view& taken) noexcept;

private:
    char at(std::size_t position) const noexcept { return position < text_.size() ? text_[position] : '\0'; }
    std::size_t prefixLength() const noexcept;
    bool skipString() noexcept;

    std::string_view text_;
    std::size_t position_ = 0;
};

}  // namespace python_host
