// How diagnostic PDUs reach control units, whatever lies between: a simulated vehicle, DoIP (ISO 13400), ISO-TP (ISO 15765-2).
#pragma once

#include <transport/Clock.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace velkotx::host {

using Pdu = std::vector<std::uint8_t>;

// One response PDU, whole, with who sent it and when it was complete.
struct ReceivedPdu {
    std::string controlUnit;
    Pdu bytes;
    Clock::Time time;
};

// A link to one control unit, or to a group of them. One thread at a time sends and receives; close() comes from any.
class Link {
public:
    virtual ~Link() = default;

    // Hands a request over. A functional one goes to every control unit of the vehicle that listens to it. Throws
    // TransportError when the link is down.
    virtual void send(std::span<const std::uint8_t> request, bool functional) = 0;
    // The next response; nothing when the time has come, or the link is closed. Throws TransportError when it broke down.
    virtual std::optional<ReceivedPdu> receive(Clock::Time until) = 0;
    // Ends every receive, now and later.
    virtual void close() = 0;
};

// Owned by the host objects. Any thread.
class Transport {
public:
    virtual ~Transport() = default;

    // The name is that of a control unit, as the description of the vehicle has it. Throws UnknownControlUnit.
    virtual std::unique_ptr<Link> open(const std::string& controlUnit) = 0;
    virtual Clock& clock() = 0;
};

class TransportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class UnknownControlUnit : public TransportError {
public:
    using TransportError::TransportError;
};

}  // namespace velkotx::host
