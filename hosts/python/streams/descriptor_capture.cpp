#include "hosts/python/streams/descriptor_capture.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "hosts/python/errors.h"

namespace python_host {

namespace {

/// Beyond the three that every program has: if one of those is closed, nobody is to take this file for it.
constexpr int firstFreeDescriptor = 3;

int duplicate(int descriptor) noexcept { return fcntl(descriptor, F_DUPFD_CLOEXEC, firstFreeDescriptor); }

/// A file in memory that many may append to; -1 when there is none to be had.
int makeFile() noexcept {
    const int made = memfd_create("captured", MFD_CLOEXEC);
    if (made < 0) {
        return -1;
    }
    const int file = duplicate(made);
    close(made);
    if (file >= 0) {
        fcntl(file, F_SETFL, O_APPEND);
    }
    return file;
}

bool redirect(int from, int to) noexcept {
    int result = -1;
    do {
        result = dup2(to, from);
    } while (result < 0 && errno == EINTR);
    return result >= 0;
}

}  // namespace

DescriptorCapture::DescriptorCapture(int descriptor, std::FILE* buffer) : descriptor_(descriptor), buffer_(buffer) {
    std::fflush(buffer_);
    original_ = duplicate(descriptor_);
    if (original_ < 0) {
        if (errno == EBADF) {
            return;
        }
        throw PythonFailure("the descriptor cannot be kept");
    }
    captured_ = makeFile();
    if (captured_ < 0 || !redirect(descriptor_, captured_)) {
        if (captured_ >= 0) {
            close(captured_);
        }
        close(original_);
        throw PythonFailure("the descriptor cannot be diverted");
    }
}

DescriptorCapture::~DescriptorCapture() {
    if (original_ < 0) {
        return;
    }
    std::fflush(buffer_);
    if (!isRestored_) {
        redirect(descriptor_, original_);
    }
    close(original_);
    close(captured_);
}

void DescriptorCapture::endBelow(DescriptorCapture& later) noexcept {
    if (original_ >= 0 && later.original_ >= 0) {
        std::swap(original_, later.original_);
        isRestored_ = true;
    }
}

std::string DescriptorCapture::take() {
    std::string text;
    if (original_ < 0) {
        return text;
    }
    std::fflush(buffer_);
    std::array<char, 4096> piece{};
    ssize_t count = 0;
    while ((count = pread(captured_, piece.data(), piece.size(), taken_)) > 0) {
        text.append(piece.data(), static_cast<std::size_t>(count));
        taken_ += count;
    }
    return text;
}

}  // namespace python_host
