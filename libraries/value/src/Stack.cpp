// Where the stack of the calling thread ends.
#include <otx/Stack.h>

#include <pthread.h>

#include <algorithm>
#include <limits>

namespace otx::detail {

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr std::uintptr_t largestReserve = 192 * 1024;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr std::uintptr_t largestReserve = 192 * 1024;
#else
constexpr std::uintptr_t largestReserve = 64 * 1024;
#endif
#else
constexpr std::uintptr_t largestReserve = 64 * 1024;
#endif

// What a recursion may use of a stack without a limit. The thread sanitizer keeps a record of the open calls that holds
// some 64,000 of them and crashes beyond.
#if defined(__SANITIZE_THREAD__)
constexpr std::uintptr_t largestStack = 3 * 1024 * 1024;
#else
constexpr std::uintptr_t largestStack = 64 * 1024 * 1024;
#endif

struct StackRange {
    std::uintptr_t low = 0;
    std::uintptr_t high = 0;
};

StackRange rangeOfThread() noexcept {
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return {};
    void* address = nullptr;
    std::size_t size = 0;
    std::size_t guard = 0;
    const bool known = pthread_attr_getstack(&attributes, &address, &size) == 0 &&
                       pthread_attr_getguardsize(&attributes, &guard) == 0;
    pthread_attr_destroy(&attributes);
    if (!known || guard >= size) return {};
    const auto low = reinterpret_cast<std::uintptr_t>(address);
    // Whether the guard counts as stack differs between versions of the C library; the careful reading costs a page.
    return {low + guard, low + size};
}

}  // namespace

constinit thread_local std::uintptr_t stackReserve = std::numeric_limits<std::uintptr_t>::max();

std::uintptr_t findStackReserve(std::uintptr_t frame) noexcept {
    if (stackReserve == std::numeric_limits<std::uintptr_t>::max()) {
        const StackRange range = rangeOfThread();
        if (frame < range.low || frame >= range.high) return 0;
        const std::uintptr_t size = range.high - range.low;
        const std::uintptr_t used = std::min(largestStack, size - std::min(largestReserve, size / 4));
        stackReserve = range.high - used;
    }
    return stackReserve;
}

}  // namespace otx::detail
