// A trace that writes a line for each PDU.
#include "diag/PduPrinter.h"

#include "diag/UdsText.h"

#include <ostream>
#include <string>

namespace velkotx::host {

namespace {

std::string secondsText(Clock::Time time) {
    constexpr long long second = 1'000'000;
    const long long count = time.count();
    const std::string fraction = std::to_string(count % second + second);
    return std::to_string(count / second) + '.' + fraction.substr(1);
}

}  // namespace

void PduPrinter::passed(const TracedPdu& pdu) {
    std::string line = secondsText(pdu.time);
    if (pdu.direction == PduDirection::Received)
        line += " < ";
    else
        line += pdu.functional ? " >> " : " > ";
    line += pdu.channel;
    if (pdu.controlUnit != pdu.channel)
        line += '/' + pdu.controlUnit;
    line += ' ' + hexText(pdu.bytes) + "  " + pduText(pdu.bytes) + '\n';
    const std::lock_guard guard(outLock_);
    out_.write(line.data(), static_cast<std::streamsize>(line.size()));
    out_.flush();
}

}  // namespace velkotx::host
