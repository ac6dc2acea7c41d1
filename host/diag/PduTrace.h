// Who wants to see every PDU that passes.
#pragma once

#include <transport/Transport.h>

#include <cstdint>
#include <span>
#include <string>

namespace velkotx::host {

enum class PduDirection { Sent, Received };

// One PDU on its way; lent for the call.
struct TracedPdu {
    Clock::Time time;  // of the transport's clock
    PduDirection direction;
    const std::string& channel;      // the name that the channel was opened with
    const std::string& controlUnit;  // who answered; of a sent one the channel's name
    bool functional;                 // of a sent one
    std::span<const std::uint8_t> bytes;
};

// Called by whatever thread has the link, in the order of the link and without a lock; several channels call at once. Must
// not throw, and must not call a channel.
class PduTrace {
public:
    virtual ~PduTrace() = default;

    virtual void passed(const TracedPdu& pdu) = 0;
};

}  // namespace velkotx::host
