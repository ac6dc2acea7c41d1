// Ends a run whose recursion has used up the thread's stack.
#pragma once

#include <otx/Stack.h>

namespace otxns {

// Throws OTXRuntimeException, "Stack exhausted".
[[noreturn, gnu::cold]] void raiseStackExhausted();

// For everything that recurses with the document or with its calls.
inline void requireStack() {
    if (otx::stackIsLow()) [[unlikely]]
        raiseStackExhausted();
}

}  // namespace otxns
