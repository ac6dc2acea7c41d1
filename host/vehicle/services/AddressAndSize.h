// The address and the size of a memory request, each as long as their format byte says.
#pragma once

#include <vehicle/Exchange.h>

namespace velkotx::host::services {

struct AddressAndSize {
    std::uint64_t address = 0;
    std::uint64_t size = 0;
    std::size_t end = 0;  // of the two in the request
};

// Reads them behind the format byte (addressAndLengthFormatIdentifier) at the position.
inline ResponseCode readAddressAndSize(const Exchange& exchange, std::size_t format, AddressAndSize& target) {
    const std::size_t addressLength = exchange.request[format] & 0x0FU;
    const std::size_t sizeLength = exchange.request[format] >> 4U;
    if (addressLength == 0 || addressLength > 8 || sizeLength == 0 || sizeLength > 8)
        return ResponseCode::RequestOutOfRange;
    target.end = format + 1 + addressLength + sizeLength;
    if (exchange.request.size() < target.end)
        return ResponseCode::IncorrectLength;
    target.address = exchange.number(format + 1, addressLength);
    target.size = exchange.number(format + 1 + addressLength, sizeLength);
    return target.size == 0 ? ResponseCode::RequestOutOfRange : ResponseCode::Positive;
}

}  // namespace velkotx::host::services
