// The process's operator new, which watches the sizes; the sanitizer still sees malloc below it.
#include "Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<bool> watching = false;
std::atomic<std::size_t> largest = 0;

void note(std::size_t size) noexcept {
    if (!watching.load(std::memory_order_relaxed)) return;
    std::size_t known = largest.load(std::memory_order_relaxed);
    while (known < size && !largest.compare_exchange_weak(known, size, std::memory_order_relaxed)) {
    }
}

}  // namespace

// All forms but those of over-aligned types: the sanitizer has forms of its own, which would not end in the plain one.
void* operator new(std::size_t size) {
    note(size);
    if (void* const memory = std::malloc(size != 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete[](void* memory) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    note(size);
    return std::malloc(size != 0 ? size : 1);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    note(size);
    return std::malloc(size != 0 ? size : 1);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

namespace sweep {

LargestAllocation::LargestAllocation() {
    largest = 0;
    watching = true;
}

LargestAllocation::~LargestAllocation() {
    watching = false;
}

std::size_t LargestAllocation::bytes() const {
    return largest;
}

}  // namespace sweep
