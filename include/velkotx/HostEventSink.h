// The host's callback object: every message of a run to its host goes through it.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace velkotx {

// Implemented and owned by the host, which hands a weak reference to Sequencer::SetHost. A run only ever holds it for the
// span of one call.
//
// sendRequest may be called from any thread of a run, from several at once, and from the thread that calls
// Sequencer::Control; an implementation guards its own data and doesn't block for the run. An exception that it throws
// fails the statement that sent the message. The order of the operations is part of the contract.
class OTX_API HostEventSink {
public:
    // Takes one message: a COtxMap with string keys, among them "eventType". The value is only lent; copy what is kept
    // (OTX::DeepCopy).
    virtual void sendRequest(const COtxValue& message) = 0;

    virtual ~HostEventSink();
};

}  // namespace velkotx
