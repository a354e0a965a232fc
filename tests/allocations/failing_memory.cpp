#include "tests/allocations/failing_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <utility>

namespace failing_memory {

namespace {

std::atomic<std::size_t> alive = 0;

// The tests ask on one thread; nobody else is refused anything.
thread_local bool isArmed = false;
thread_local std::size_t asked = 0;
thread_local std::size_t refusedNumber = 0;

std::function<void()>& listener() {
    static std::function<void()> refused;
    return refused;
}

bool isRefused() {
    if (!isArmed || ++asked != refusedNumber) {
        return false;
    }
    if (listener()) {
        listener()();
    }
    return true;
}

void* counted(void* block) noexcept {
    alive += block == nullptr ? 0 : 1;
    return block;
}

void* block(std::size_t size) noexcept { return isRefused() ? nullptr : counted(std::malloc(size == 0 ? 1 : size)); }

void* block(std::size_t size, std::align_val_t alignment) noexcept {
    const auto boundary = static_cast<std::size_t>(alignment);
    const std::size_t rounded = (size + boundary - 1) / boundary * boundary;
    return isRefused() ? nullptr : counted(std::aligned_alloc(boundary, rounded == 0 ? boundary : rounded));
}

void* orThrow(void* block) {
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void giveBack(void* block) noexcept {
    alive -= block == nullptr ? 0 : 1;
    std::free(block);
}

}  // namespace

std::size_t blocksAlive() noexcept { return alive; }

void arm(std::size_t number, std::function<void()> refused) {
    listener() = std::move(refused);
    asked = 0;
    refusedNumber = number;
    isArmed = true;
}

std::size_t disarm() noexcept {
    isArmed = false;
    listener() = nullptr;
    return asked;
}

}  // namespace failing_memory

using failing_memory::block;
using failing_memory::giveBack;
using failing_memory::orThrow;

void* operator new(std::size_t size) { return orThrow(block(size)); }
void* operator new[](std::size_t size) { return orThrow(block(size)); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return block(size); }
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return block(size); }
void* operator new(std::size_t size, std::align_val_t alignment) { return orThrow(block(size, alignment)); }
void* operator new[](std::size_t size, std::align_val_t alignment) { return orThrow(block(size, alignment)); }

void operator delete(void* block) noexcept { giveBack(block); }
void operator delete[](void* block) noexcept { giveBack(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { giveBack(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { giveBack(block); }
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept { giveBack(block); }
void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept { giveBack(block); }
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept { giveBack(block); }
void operator delete[](void* block, std::align_val_t /*alignment*/) noexcept { giveBack(block); }
void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept { giveBack(block); }
void operator delete[](void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept { giveBack(block); }
