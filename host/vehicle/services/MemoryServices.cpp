// Memory by address: read and write.
#include "vehicle/services/Services.h"

#include "vehicle/services/AddressAndSize.h"

#include <algorithm>

namespace velkotx::host::services {

ResponseCode readMemoryByAddress(Exchange& exchange) {
    AddressAndSize range;
    if (const ResponseCode code = readAddressAndSize(exchange, 1, range); code != ResponseCode::Positive)
        return code;
    if (exchange.request.size() != range.end)
        return ResponseCode::IncorrectLength;
    const MemoryState* memory = exchange.state.findMemory(range.address, range.size);
    if (memory == nullptr || !memory->description->readable ||
        !exchange.state.sessionFits(memory->description->condition))
        return ResponseCode::RequestOutOfRange;
    if (!exchange.state.securityFits(memory->description->condition))
        return ResponseCode::SecurityAccessDenied;
    if (range.size >= exchange.unit.maxResponseLength)
        return ResponseCode::ResponseTooLong;
    const std::span<const std::uint8_t> bytes(memory->bytes);
    exchange.put(bytes.subspan(static_cast<std::size_t>(range.address - memory->description->start),
                               static_cast<std::size_t>(range.size)));
    return ResponseCode::Positive;
}

ResponseCode writeMemoryByAddress(Exchange& exchange) {
    AddressAndSize range;
    if (const ResponseCode code = readAddressAndSize(exchange, 1, range); code != ResponseCode::Positive)
        return code;
    const auto data = exchange.request.subspan(range.end);
    if (data.size() != range.size)
        return ResponseCode::IncorrectLength;
    MemoryState* memory = exchange.state.findMemory(range.address, range.size);
    if (memory == nullptr || !memory->description->writable ||
        !exchange.state.sessionFits(memory->description->condition))
        return ResponseCode::RequestOutOfRange;
    if (!exchange.state.securityFits(memory->description->condition))
        return ResponseCode::SecurityAccessDenied;
    const auto offset = static_cast<std::ptrdiff_t>(range.address - memory->description->start);
    std::copy(data.begin(), data.end(), memory->bytes.begin() + offset);
    exchange.put(exchange.request.subspan(1, range.end - 1));
    return ResponseCode::Positive;
}

}  // namespace velkotx::host::services
