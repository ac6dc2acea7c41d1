// The slots of virtual operations, for tests of their order.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

#include <gtest/gtest.h>

namespace otx {

// The slot of a virtual operation, from 1; a virtual destructor takes two slots in this ABI.
template <class Operation>
long slot(Operation operation) {
    struct Pointer {
        std::uintptr_t offset;
        std::ptrdiff_t adjustment;
    };
    static_assert(sizeof(Operation) == sizeof(Pointer));
    return static_cast<long>((std::bit_cast<Pointer>(operation).offset - 1) / sizeof(void*)) + 1;
}

template <class... Operations>
void expectOrder(long first, Operations... operations) {
    long expected = first;
    for (const long found : {slot(operations)...}) {
        EXPECT_EQ(found, expected) << "operation " << expected - first + 1;
        ++expected;
    }
}

}  // namespace otx
