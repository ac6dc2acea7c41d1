// The boundary where OTX exceptions leave for the host.
#pragma once

#include <otx/value/COtxValue.h>

namespace otxns {

// Throws an OTX exception that nobody caught on as OTXSequenceException.
[[noreturn]] void leaveAsSequenceException(const COtxValue& exception);

}  // namespace otxns
