// One request to a simulated control unit, and what comes of it.
#pragma once

#include <vehicle/ControlUnitDescription.h>
#include <vehicle/ResponseCode.h>
#include <vehicle/UnitState.h>

#include <cstddef>
#include <cstdint>
#include <span>

namespace velkotx::host {

struct Exchange {
    const ControlUnitDescription& unit;
    UnitState& state;
    std::span<const std::uint8_t> request;  // never empty
    Clock::Time now;

    Bytes answer;                   // the positive response; the frame has put the service identifier there
    Clock::Duration processing{0};  // how long it takes; 0x78 is sent when that is longer than P2
    bool resets = false;            // once the answer is out

    std::uint8_t subfunction() const { return static_cast<std::uint8_t>(request[1] & 0x7F); }
    std::uint16_t word(std::size_t position) const {
        return static_cast<std::uint16_t>(request[position] << 8 | request[position + 1]);
    }
    // A number of up to eight bytes, the high one first.
    std::uint64_t number(std::size_t position, std::size_t length) const {
        std::uint64_t value = 0;
        for (std::size_t index = 0; index < length; ++index)
            value = value << 8 | request[position + index];
        return value;
    }
    void put(std::uint64_t value, std::size_t length) {
        for (std::size_t place = length; place-- > 0;)
            answer.push_back(static_cast<std::uint8_t>(value >> (place * 8)));
    }
    void put(std::span<const std::uint8_t> bytes) { answer.insert(answer.end(), bytes.begin(), bytes.end()); }
};

// Answers a request that the frame let through: `answer` grows, or a negative code is given.
using ServiceHandler = ResponseCode (*)(Exchange&);

}  // namespace velkotx::host
