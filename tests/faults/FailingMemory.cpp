// The process's operator new, which counts, and refuses when it is told to.
#include "FailingMemory.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> blocks = 0;
std::atomic<std::size_t> bytes = 0;
// The calls that are still to succeed before the failing one, plus 1; 0 when nothing is to fail.
std::atomic<std::size_t> left = 0;
std::atomic<bool> isOnwards = false;
std::atomic<bool> hasRefused = false;

bool isRefused() noexcept {
    std::size_t now = left.load();
    while (now != 0) {
        const std::size_t next = now > 1 ? now - 1 : isOnwards ? 1 : 0;
        if (!left.compare_exchange_weak(now, next)) continue;
        if (now > 1) return false;
        hasRefused = true;
        return true;
    }
    return false;
}

void* take(std::size_t size) noexcept {
    if (isRefused()) return nullptr;
    void* const memory = std::malloc(size != 0 ? size : 1);
    if (memory == nullptr) return nullptr;
    ++blocks;
    bytes += malloc_usable_size(memory);
    return memory;
}

void giveBack(void* memory) noexcept {
    if (memory == nullptr) return;
    --blocks;
    bytes -= malloc_usable_size(memory);
    std::free(memory);
}

}  // namespace

// All forms but those of over-aligned types: the sanitizer has forms of its own, which would not end in the plain one.
void* operator new(std::size_t size) {
    if (void* const memory = take(size)) return memory;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return take(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return take(size);
}

void operator delete(void* memory) noexcept {
    giveBack(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    giveBack(memory);
}

void operator delete[](void* memory) noexcept {
    giveBack(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    giveBack(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    giveBack(memory);
}

void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    giveBack(memory);
}

namespace faults {

MemoryInUse memoryInUse() noexcept {
    return {blocks, bytes};
}

FailingMemory::FailingMemory(std::size_t failAt, Extent extent) noexcept {
    hasRefused = false;
    isOnwards = extent == Extent::onwards;
    left = failAt;
}

FailingMemory::~FailingMemory() {
    left = 0;
}

bool FailingMemory::hasFailed() const noexcept {
    return hasRefused;
}

SparedMemory::SparedMemory() noexcept : left_(left.exchange(0)) {}

SparedMemory::~SparedMemory() {
    left = left_;
}

}  // namespace faults
