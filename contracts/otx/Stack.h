// How much stack the calling thread has left: recursion asks before it goes deeper.
#pragma once

#include <otx/Export.h>

#include <cstddef>
#include <cstdint>

namespace otx {

namespace detail {

// Where the calling thread's reserve begins; the highest address until the thread first asks.
extern OTX_API constinit thread_local std::uintptr_t stackReserve __attribute__((tls_model("initial-exec")));

// Finds the reserve of the calling thread. Gives 0 for a stack that isn't the thread's own, which is never low.
OTX_API std::uintptr_t findStackReserve(std::uintptr_t frame) noexcept;

}  // namespace detail

// The bytes that the calling thread may still use before its reserve begins. The reserve is 64 KB (192 KB in a build with
// the address sanitizer) but at most a quarter of the stack, and all that lies beyond 64 MB. It is for unwinding, for the
// failure's own text and for the calls that don't ask. Any thread; never throws.
inline std::size_t stackLeft() noexcept {
    const auto frame = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    std::uintptr_t reserve = detail::stackReserve;
    if (frame < reserve) [[unlikely]]
        reserve = detail::findStackReserve(frame);
    return frame < reserve ? 0 : frame - reserve;
}

// Whether a recursion has to stop here. One thread-local read and one comparison.
inline bool stackIsLow() noexcept {
    const auto frame = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    return frame < detail::stackReserve && frame < detail::findStackReserve(frame);
}

}  // namespace otx
