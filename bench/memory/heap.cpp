// Counts what a process holds on the heap: preloaded, it stands before the allocator of the C library.
//
// Notes are taken into numbered slots, so that reading them takes no memory meanwhile. Everything that asks for memory
// is counted by what the allocator gave, on all threads together.
#include <malloc.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>

#define EXPORTED extern "C" __attribute__((visibility("default")))

// The C library's own way in, by the names that it has there.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

constexpr std::size_t slotCount = 16;

std::atomic<std::int64_t> held{0};
std::atomic<std::int64_t> most{0};
std::int64_t slots[slotCount];

void* given(void* memory) noexcept {
    if (memory != nullptr) {
        const auto size = static_cast<std::int64_t>(malloc_usable_size(memory));
        const std::int64_t now = held.fetch_add(size, std::memory_order_relaxed) + size;
        if (now > most.load(std::memory_order_relaxed)) {
            most.store(now, std::memory_order_relaxed);
        }
    }
    return memory;
}

void takenBack(void* memory) noexcept {
    if (memory != nullptr) {
        held.fetch_sub(static_cast<std::int64_t>(malloc_usable_size(memory)), std::memory_order_relaxed);
    }
}

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
EXPORTED void* malloc(std::size_t size) { return given(__libc_malloc(size)); }

EXPORTED void* calloc(std::size_t count, std::size_t size) { return given(__libc_calloc(count, size)); }

EXPORTED void* realloc(void* memory, std::size_t size) {
    const auto before = memory == nullptr ? 0 : static_cast<std::int64_t>(malloc_usable_size(memory));
    void* moved = __libc_realloc(memory, size);
    if (moved != nullptr || size == 0) {
        held.fetch_sub(before, std::memory_order_relaxed);
    }
    return given(moved);
}

EXPORTED void* memalign(std::size_t alignment, std::size_t size) { return given(__libc_memalign(alignment, size)); }

EXPORTED void* aligned_alloc(std::size_t alignment, std::size_t size) { return memalign(alignment, size); }

EXPORTED int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}

EXPORTED void free(void* memory) {
    takenBack(memory);
    __libc_free(memory);
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)

/// Notes what is held now, and begins to look for the most that is held from here on.
EXPORTED void heapMark(std::size_t slot) {
    slots[slot] = held.load();
    most.store(held.load());
}

/// Notes what is held now.
EXPORTED void heapNow(std::size_t slot) { slots[slot] = held.load(); }

/// Notes the most that was held since the last mark.
EXPORTED void heapPeak(std::size_t slot) { slots[slot] = most.load(); }

EXPORTED std::int64_t heapNoted(std::size_t slot) { return slots[slot]; }
