// How a long operation of a value asks whether it should go on.
#pragma once

#include <otx/Export.h>

namespace otx {

namespace detail {

struct Interruption {
    void (*ask)(const void* data);
    const void* data;
};

// What the calling thread's operations ask; null for nothing.
extern OTX_API constinit thread_local const Interruption* interruption __attribute__((tls_model("initial-exec")));

}  // namespace detail

// Called by such an operation between two pieces of its work; throws what the thread's InterruptionScope throws.
inline void checkInterruption() {
    if (detail::interruption != nullptr) detail::interruption->ask(detail::interruption->data);
}

// While it lives, long operations of values on its thread call `ask`; what that throws ends the operation. On the stack
// of one thread; scopes nest. OTX::IString asks in IndexOf, Split and Match.
template <class Ask>
class InterruptionScope {
public:
    explicit InterruptionScope(const Ask& ask) noexcept
        : interruption_{[](const void* data) { (*static_cast<const Ask*>(data))(); }, &ask},
          outer_(detail::interruption) {
        detail::interruption = &interruption_;
    }
    InterruptionScope(const InterruptionScope&) = delete;
    InterruptionScope& operator=(const InterruptionScope&) = delete;
    ~InterruptionScope() { detail::interruption = outer_; }

private:
    const detail::Interruption interruption_;
    const detail::Interruption* const outer_;
};

}  // namespace otx
