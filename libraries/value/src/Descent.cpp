// The ends of a walk over values.
#include "Descent.h"

#include <otx/Stack.h>

#include "Refusal.h"

namespace otx {

constinit thread_local Descent::Walk Descent::walk{};

Descent::Descent() {
    if (stackIsLow()) [[unlikely]]
        fail(OTX::Exceptions_e::OutOfBoundsException, "Value is nested too deeply or contains itself");
    if (walk.depth == 0) walk.steps = 0;
    if (walk.steps == most) [[unlikely]]
        fail(OTX::Exceptions_e::OutOfBoundsException, "Value holds others too many times");
    ++walk.steps;
    ++walk.depth;
}

}  // namespace otx
