// Keeping what compiled code prints from the screen.
#pragma once

#include <cstdio>
#include <string>

namespace python_host {

/// For the life of the guard, a descriptor of the process leads to a file in memory. Other threads' output goes there
/// too: a descriptor is the process's.
class DescriptorCapture {
public:
    /// What the C library still holds for the descriptor goes where it belongs before. A descriptor that is closed
    /// stays so. Throws a host failure, with nothing diverted, when it cannot be done.
    DescriptorCapture(int descriptor, std::FILE* buffer);
    DescriptorCapture(const DescriptorCapture&) = delete;
    DescriptorCapture& operator=(const DescriptorCapture&) = delete;
    ~DescriptorCapture();

    /// What was written since the last time, as the bytes that they are.
    std::string take();

    /// Lets a later guard, which took this one's file for the original, put the original back in its stead.
    void endBelow(DescriptorCapture& later) noexcept;

private:
    int descriptor_;
    std::FILE* buffer_;
    int original_ = -1;  ///< -1 when nothing is diverted
    int captured_ = -1;
    bool isRestored_ = false;  ///< a later guard is to put the original back
    long taken_ = 0;
};

}  // namespace python_host
