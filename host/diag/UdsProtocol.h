// What a channel has to know of the bytes of ISO 14229-1.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace velkotx::host::uds {

constexpr std::uint8_t sessionControl = 0x10;
constexpr std::uint8_t reset = 0x11;
constexpr std::uint8_t testerPresent = 0x3E;

constexpr std::uint8_t negativeResponse = 0x7F;
constexpr std::uint8_t positiveOffset = 0x40;
constexpr std::uint8_t suppressPositive = 0x80;
constexpr std::uint8_t responsePending = 0x78;
constexpr std::uint8_t defaultSession = 0x01;

// Nobody answers it.
constexpr std::array<std::uint8_t, 2> quietTesterPresent{testerPresent, suppressPositive};

// Whether the second byte of such a request is a subfunction, whose highest bit suppresses the positive response.
bool hasSubfunction(std::uint8_t service) noexcept;
// Whether no answer to the request means that all went well.
bool suppressesPositive(std::span<const std::uint8_t> request) noexcept;

enum class Answer { Foreign, Pending, Negative, Positive };

// What a PDU is to the request: Foreign answers something else, such as an earlier request that was given up.
Answer answerTo(std::span<const std::uint8_t> request, std::span<const std::uint8_t> response) noexcept;

}  // namespace velkotx::host::uds
