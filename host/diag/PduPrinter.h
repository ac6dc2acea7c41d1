// A trace that writes a line for each PDU.
#pragma once

#include "diag/PduTrace.h"

#include <iosfwd>
#include <mutex>

namespace velkotx::host {

// Lines such as
//     0.050123 > Engine 22 F1 90  ReadDataByIdentifier F190
//     0.051200 < Engine 62 F1 90 56  ReadDataByIdentifier F190: positive, 4 bytes
// with seconds of the transport's clock, ">" for what is sent (">>" functionally) and "<" for what is received. A response
// of another control unit than the channel's carries its name behind the channel's: "Body/Gateway". Any thread; whole
// lines. The stream must outlive it.
class PduPrinter final : public PduTrace {
public:
    explicit PduPrinter(std::ostream& out) : out_(out) {}

    void passed(const TracedPdu& pdu) override;

private:
    // Guards out_.
    std::mutex outLock_;
    std::ostream& out_;
};

}  // namespace velkotx::host
