// What a channel has to know of the bytes of ISO 14229-1.
#include "diag/UdsProtocol.h"

namespace velkotx::host::uds {

bool hasSubfunction(std::uint8_t service) noexcept {
    switch (service) {
        case 0x10: case 0x11: case 0x19: case 0x27: case 0x28: case 0x29: case 0x2C: case 0x31: case 0x3E: case 0x83:
        case 0x85: case 0x86: case 0x87:
            return true;
        default:
            return false;
    }
}

bool suppressesPositive(std::span<const std::uint8_t> request) noexcept {
    return request.size() > 1 && hasSubfunction(request[0]) && (request[1] & suppressPositive) != 0;
}

Answer answerTo(std::span<const std::uint8_t> request, std::span<const std::uint8_t> response) noexcept {
    if (request.empty() || response.empty())
        return Answer::Foreign;
    if (response[0] != negativeResponse)
        return response[0] == static_cast<std::uint8_t>(request[0] + positiveOffset) ? Answer::Positive : Answer::Foreign;
    // A negative response that breaks off before the service can only be meant for the request that waits.
    if (response.size() > 1 && response[1] != request[0])
        return Answer::Foreign;
    return response.size() > 2 && response[2] == responsePending ? Answer::Pending : Answer::Negative;
}

}  // namespace velkotx::host::uds
