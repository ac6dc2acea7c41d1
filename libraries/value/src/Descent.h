// One step down into what a value holds.
#pragma once

#include <cstdint>

namespace otx {

// Stands on the stack while the content of a list, a map or another value that holds values is walked over. Making it
// throws kind 2 when the thread's stack is nearly used up, or when the walk has come into such values more than `most`
// times. It comes into one as often as it meets it: a value may hold another one twice, which holds a third twice, and
// so on, so that a few values are walked over for ever. A value without such sharing would need gigabytes to get there.
class Descent {
public:
    static constexpr std::uint32_t most = 1 << 24;

    Descent();
    Descent(const Descent&) = delete;
    Descent& operator=(const Descent&) = delete;
    ~Descent() { --walk.depth; }

private:
    // Of the calling thread; begins anew with each outermost step.
    struct Walk {
        std::uint32_t depth;
        std::uint32_t steps;
    };
    static constinit thread_local Walk walk __attribute__((tls_model("initial-exec")));
};

}  // namespace otx
