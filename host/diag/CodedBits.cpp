// Values as they stand in PDUs: where their bits lie.
#include "diag/CodedValue.h"

namespace velkotx::host {

namespace {

// The place of the i-th byte of a number, counted from its lowest.
std::size_t byteAt(std::size_t at, std::size_t size, std::size_t i, ByteOrder order) {
    return order == ByteOrder::LowFirst ? at + i : at + size - 1 - i;
}

std::uint64_t maskOf(std::size_t bits) { return bits >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << bits) - 1; }

// The bits of a 64-bit number that the i-th byte holds, for a number whose lowest bit is bit `position` of byte 0.
std::uint8_t slice(std::uint64_t number, std::size_t i, unsigned position) {
    const std::size_t shift = 8 * i;
    if (shift < position)
        return static_cast<std::uint8_t>(number << (position - shift));
    return shift - position < 64 ? static_cast<std::uint8_t>(number >> (shift - position)) : std::uint8_t{0};
}

}  // namespace

bool isBytes(Coding coding) noexcept {
    return coding == Coding::Ascii || coding == Coding::Utf8 || coding == Coding::ByteField;
}

bool isNumeric(Coding coding) noexcept {
    return coding == Coding::Unsigned || coding == Coding::Signed || coding == Coding::Float || coding == Coding::Bcd;
}

std::size_t fixedSize(const ParameterDescription& parameter) noexcept {
    const std::size_t position = isBytes(parameter.coding) ? 0 : parameter.bitPosition;
    return (position + parameter.bitLength + 7) / 8;
}

CodedValue readCoded(std::span<const std::uint8_t> pdu, std::size_t at, std::size_t size,
                     const ParameterDescription& parameter) {
    if (isBytes(parameter.coding)) {
        const auto bytes = pdu.subspan(at, size);
        return Bytes(bytes.begin(), bytes.end());
    }
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const std::uint64_t byte = pdu[byteAt(at, size, i, parameter.byteOrder)];
        const std::size_t shift = 8 * i;
        if (shift < parameter.bitPosition)
            number |= byte >> (parameter.bitPosition - shift);
        else if (shift - parameter.bitPosition < 64)
            number |= byte << (shift - parameter.bitPosition);
    }
    return number & maskOf(parameter.bitLength);
}

std::size_t writeCoded(Bytes& pdu, std::size_t at, const CodedValue& value, const ParameterDescription& parameter) {
    const auto* const bytes = std::get_if<Bytes>(&value);
    const std::size_t size = bytes != nullptr ? bytes->size() : fixedSize(parameter);
    if (pdu.size() < at + size)
        pdu.resize(at + size);
    if (bytes != nullptr) {
        std::copy(bytes->begin(), bytes->end(), pdu.begin() + static_cast<std::ptrdiff_t>(at));
        return at + size;
    }
    const std::uint64_t number = std::get<std::uint64_t>(value);
    for (std::size_t i = 0; i < size; ++i) {
        std::uint8_t& byte = pdu[byteAt(at, size, i, parameter.byteOrder)];
        const std::uint8_t mask = slice(maskOf(parameter.bitLength), i, parameter.bitPosition);
        byte = static_cast<std::uint8_t>((byte & ~mask) | (slice(number, i, parameter.bitPosition) & mask));
    }
    return at + size;
}

}  // namespace velkotx::host
