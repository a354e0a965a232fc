// Counting for what is used under the GIL only: plain numbers, no atomics.
#pragma once

#include <cstdint>

namespace python_host {

/// Destroys itself when the last intrusive handle ends.
class Counted {
public:
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    void addOwner() const noexcept { ++owners_; }
    void releaseOwner() const noexcept {
        if (--owners_ == 0) {
            delete this;
        }
    }

protected:
    Counted() = default;
    virtual ~Counted() = default;

private:
    mutable std::int64_t owners_ = 0;
};

inline void intrusive_ptr_add_ref(const Counted* object) noexcept { object->addOwner(); }
inline void intrusive_ptr_release(const Counted* object) noexcept { object->releaseOwner(); }

}  // namespace python_host
