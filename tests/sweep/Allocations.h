// The largest single allocation of a piece of work.
#pragma once

#include <cstddef>

namespace sweep {

// Sees what goes through operator new, of any thread, while it lives; one at a time.
class LargestAllocation {
public:
    LargestAllocation();
    ~LargestAllocation();
    LargestAllocation(const LargestAllocation&) = delete;
    LargestAllocation& operator=(const LargestAllocation&) = delete;

    std::size_t bytes() const;
};

}  // namespace sweep
