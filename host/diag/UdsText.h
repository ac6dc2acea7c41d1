// PDUs in words, for people.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace velkotx::host {

// Bytes as pairs of hexadecimal digits with blanks between. Of a long field the first 32, then how many there are.
std::string hexText(std::span<const std::uint8_t> bytes);

// The name of a negative response code (ISO 14229-1, annex A), such as "requestOutOfRange"; its digits when it has none.
std::string negativeResponseText(std::uint8_t code);

// What a PDU means, such as "ReadDataByIdentifier F190", "ReadDataByIdentifier F190: positive, 17 bytes" or
// "ReadDataByIdentifier: requestOutOfRange (31)". Any bytes will do.
std::string pduText(std::span<const std::uint8_t> pdu);

}  // namespace velkotx::host
