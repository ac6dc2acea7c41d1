// What every request goes through before and after its service: ISO 14229-1, 8.7, general server response behaviour.
#pragma once

#include <vehicle/Exchange.h>

namespace velkotx::host {

struct FrameResult {
    ResponseCode code = ResponseCode::Positive;
    bool suppressed = false;  // nothing is sent, unless 0x78 was sent before
};

// Checks the request in the standard's order, lets its service answer, and judges whether the answer is sent. The answer in
// the exchange is positive or negative as the code says.
FrameResult serve(Exchange& exchange, bool functional);

// The negative response to the request.
Bytes negativeResponse(std::uint8_t service, ResponseCode code);

}  // namespace velkotx::host
