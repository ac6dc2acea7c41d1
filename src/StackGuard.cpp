// The failure of a recursion that went too deep.
#include <StackGuard.h>
#include <velkotx/Exceptions.h>

namespace otxns {

void raiseStackExhausted() {
    throw velkotx::OTXRuntimeException("InternalError", "Stack exhausted");
}

}  // namespace otxns
