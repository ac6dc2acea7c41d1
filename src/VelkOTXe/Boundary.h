// The boundary where OTX exceptions leave for the host.
#pragma once

#include <otx/value/COtxValue.h>

namespace otxns {

// Logs an OTX exception that nobody caught, and throws it on as OTXSequenceException.
[[noreturn]] void leaveAsSequenceException(const COtxValue& exception);

}  // namespace otxns
