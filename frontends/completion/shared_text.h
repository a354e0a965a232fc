// A text that many items have in common.
#pragma once

#include <memory>
#include <string>
#include <utility>

namespace contextdata::completion {

/// An immutable text, or none, which is empty. Copies refer to the same text, so that the name of a class is there once
/// for all its members. A plain value; copies may be used on different threads.
class SharedText {
public:
    SharedText() = default;

    /// Takes the text over. May throw `std::bad_alloc`.
    explicit SharedText(std::u16string text)
        : text_(text.empty() ? nullptr : std::make_shared<const std::u16string>(std::move(text))) {}

    bool empty() const noexcept { return text_ == nullptr; }

    /// Lives as long as this text or a copy of it.
    const std::u16string& text() const noexcept {
        static const std::u16string none;
        return text_ ? *text_ : none;
    }

    friend bool operator==(const SharedText& left, const SharedText& right) noexcept {
        return left.text_ == right.text_ || left.text() == right.text();
    }

private:
    std::shared_ptr<const std::u16string> text_;
};

}  // namespace contextdata::completion
