// A place for one result that the interpreter writes.
#pragma once

#include "host/array_library.h"

namespace contextdata::values {

/// Owns what is written to it, whatever becomes of the call that writes.
class OutputSlot {
public:
    OutputSlot() = default;
    OutputSlot(const OutputSlot&) = delete;
    OutputSlot& operator=(const OutputSlot&) = delete;
    ~OutputSlot() { qxDestroyArray(value_); }

    qxArray** place() noexcept { return &value_; }
    qxArray* get() const noexcept { return value_; }
    void release() noexcept { value_ = nullptr; }

private:
    qxArray* value_ = nullptr;
};

}  // namespace contextdata::values
