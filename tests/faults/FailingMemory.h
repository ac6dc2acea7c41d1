// Memory that refuses, and what is in use of it.
#pragma once

#include <cstddef>

namespace faults {

// What operator new has given and nobody has given back, in the whole process.
struct MemoryInUse {
    std::size_t blocks = 0;
    std::size_t bytes = 0;

    bool operator==(const MemoryInUse&) const = default;
};
MemoryInUse memoryInUse() noexcept;

// While it lives, one call of operator new throws std::bad_alloc: the n-th, of whatever thread, counted from 1. Or that one
// and all that follow. One at a time.
class FailingMemory {
public:
    enum class Extent { one, onwards };

    FailingMemory(std::size_t failAt, Extent extent) noexcept;
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    bool hasFailed() const noexcept;
};

// While it lives, memory is given again, and what is taken isn't counted: to look at what a piece of work has given.
class SparedMemory {
public:
    SparedMemory() noexcept;
    ~SparedMemory();
    SparedMemory(const SparedMemory&) = delete;
    SparedMemory& operator=(const SparedMemory&) = delete;

private:
    const std::size_t left_;
};

}  // namespace faults
