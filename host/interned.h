// Interned names: the class system's permanent 8-bit texts, compared by address.
#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <string_view>

#include "host/visibility.h"

namespace zelk {

namespace internal {

/// The text that the empty handle shows.
struct IdEmptyPolicy {
    /// Permanent, never null.
    static constexpr const char* text() noexcept { return ""; }
};

template <class EmptyPolicy>
class InternedAccess;

}  // namespace internal

/// A handle to an interned name; pointer-sized, trivially copyable, never owning.
///
/// Interned texts are immutable and live as long as the process, so handles may be copied and read on any
/// thread. Two handles are equal exactly when they name the same text. The default-constructed handle is the
/// empty one; it refers to no text and differs from every other. The order is by address: stable within a
/// process, meaningless across processes.
template <class EmptyPolicy>
class COSInternedBase {
public:
    constexpr COSInternedBase() noexcept = default;

    /// True when the handle refers to no name.
    constexpr bool isEmpty() const noexcept { return text_ == nullptr; }

    /// The zero-terminated name; the policy's text for the empty handle. Never null.
    constexpr const char* c_str() const noexcept { return isEmpty() ? EmptyPolicy::text() : text_; }

    /// The same as a view; permanent as well.
    constexpr std::string_view view() const noexcept { return c_str(); }

    friend constexpr bool operator==(COSInternedBase, COSInternedBase) noexcept = default;
    /// The order of addresses, for sorted containers.
    friend constexpr std::strong_ordering operator<=>(COSInternedBase left, COSInternedBase right) noexcept {
        return std::compare_three_way{}(left.text_, right.text_);
    }

private:
    friend class internal::InternedAccess<EmptyPolicy>;
    constexpr explicit COSInternedBase(const char* text) noexcept : text_(text) {}

    const char* text_ = nullptr;
};

/// The handle that names classes, namespaces and members.
using COSInternedID = COSInternedBase<internal::IdEmptyPolicy>;

namespace internal {

/// How a host turns an entry of its intern table into a handle; nobody else makes handles.
template <class EmptyPolicy>
class InternedAccess {
public:
    /// `text` is a zero-terminated, non-empty entry of the host's intern table.
    static constexpr COSInternedBase<EmptyPolicy> fromEntry(const char* text) noexcept {
        return COSInternedBase<EmptyPolicy>(text);
    }
};

/// Returns the permanent handle of a name: the same handle for the same bytes, for the life of the process.
///
/// `name` is not empty and holds no zero byte; an empty name is the empty handle, which callers make without
/// asking. Any thread. May throw `std::bad_alloc` or any host failure; the table is then unchanged.
CONTEXTDATA_HOST_API COSInternedID makeInterned(std::string_view name);

}  // namespace internal
}  // namespace zelk

template <class EmptyPolicy>
struct std::hash<zelk::COSInternedBase<EmptyPolicy>> {
    std::size_t operator()(zelk::COSInternedBase<EmptyPolicy> id) const noexcept {
        return std::hash<const void*>{}(id.isEmpty() ? nullptr : id.c_str());
    }
};
