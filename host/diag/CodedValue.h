// Values as they stand in PDUs: where their bits lie, and what they mean.
#pragma once

#include <vehicle/ServiceDescription.h>

#include <otx/value/COtxValue.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace velkotx::host {

// Numbers as their bits, the lowest at bit 0; texts and byte fields as bytes.
using CodedValue = std::variant<std::uint64_t, Bytes>;

// Whether values of the coding are bytes and not bits.
bool isBytes(Coding coding) noexcept;
// A number, that is: no Boolean, text or byte field.
bool isNumeric(Coding coding) noexcept;

// The whole bytes that hold a value of fixed length.
std::size_t fixedSize(const ParameterDescription& parameter) noexcept;

// The value in `size` bytes from a place on, all of which must be there.
CodedValue readCoded(std::span<const std::uint8_t> pdu, std::size_t at, std::size_t size,
                     const ParameterDescription& parameter);
// Writes it and gives the place behind it. The PDU grows as needed; bits of other values stay.
std::size_t writeCoded(Bytes& pdu, std::size_t at, const CodedValue& value, const ParameterDescription& parameter);

// The physical value of a coded number.
double physicalNumber(std::uint64_t bits, const ParameterDescription& parameter);

// The value as a sequence sees it: converted to the type asked for, or, for Empty, as its own: a Quantity where there is a
// unit, the text of a text table. As a String a number stands without its unit; as a ByteField there are the coded bytes;
// of a text table Integer, Float and Quantity are the coded number. Throws kind 7 for bits without a meaning and kind 5
// for a type that it can't become.
COtxValue decoded(const CodedValue& value, const ParameterDescription& parameter, OTX::ValueType type);

// The other way. Takes Booleans, numbers, quantities (in any unit that converts to the parameter's), texts and byte fields
// as far as they make sense. Throws kind 7 for what the parameter can't carry, and what the conversion throws.
CodedValue encoded(const COtxValue& value, const ParameterDescription& parameter);
// The same of a number of bytes or items.
CodedValue encodedCount(std::size_t count, const ParameterDescription& parameter);

// The number of a Boolean, number or text, or of a quantity in that unit; bare numbers, and all for the empty unit, are taken
// as they are. Throws as the conversion does.
double numberIn(const COtxValue& value, const std::string& unit);

// A value of a description; monostate is the empty value.
COtxValue toValue(const PlainValue& value);

}  // namespace velkotx::host
