// Objects that the host counts.
#pragma once

namespace zelk {

/// The base of what intrusive handles hold. The two operations never fail and may do nothing for permanent objects.
class COSReferenceCounted {
public:
    virtual void addReference() const noexcept = 0;
    virtual void releaseReference() const noexcept = 0;

protected:
    COSReferenceCounted() = default;
    COSReferenceCounted(const COSReferenceCounted&) = default;
    COSReferenceCounted& operator=(const COSReferenceCounted&) = default;
    ~COSReferenceCounted() = default;
};

inline void intrusive_ptr_add_ref(const COSReferenceCounted* object) noexcept { object->addReference(); }
inline void intrusive_ptr_release(const COSReferenceCounted* object) noexcept { object->releaseReference(); }

}  // namespace zelk
