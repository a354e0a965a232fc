// Objects that the host counts.
#pragma once

namespace zelk {

/// The base of what intrusive handles hold. The two operations never fail and may do nothing for permanent objects.
class COSReferenceCounted {
public:
    /// Takes and gives up one claim; after the last one the object may be gone. Claims on nodes and iterators are taken
    /// on the interpreter thread alone, so the count need not be atomic.
    /// @{
    virtual void addReference() const noexcept = 0;
    virtual void releaseReference() const noexcept = 0;
    /// @}

protected:
    COSReferenceCounted() = default;
    COSReferenceCounted(const COSReferenceCounted&) = default;
    COSReferenceCounted& operator=(const COSReferenceCounted&) = default;
    ~COSReferenceCounted() = default;
};

/// What the handles call; `object` is not null.
/// @{
inline void intrusive_ptr_add_ref(const COSReferenceCounted* object) noexcept { object->addReference(); }
inline void intrusive_ptr_release(const COSReferenceCounted* object) noexcept { object->releaseReference(); }
/// @}

}  // namespace zelk
