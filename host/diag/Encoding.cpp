// Values of a sequence as they are to stand in PDUs.
#include "diag/CodedValue.h"
#include "diag/Conversion.h"
#include "diag/DiagFailure.h"

#include <otx/value/COtxByteField.h>
#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxQuantity.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace velkotx::host {

namespace {

using OTX::Exceptions_e;
using OTX::ValueType;

[[noreturn]] void refuse(const ParameterDescription& parameter, const std::string& why) {
    fail(Exceptions_e::DiagComException, "parameter '" + parameter.name + "': " + why);
}

[[noreturn]] void refuse(const ParameterDescription& parameter, const COtxValue& value, const std::string& why) {
    refuse(parameter, value.ToString().String() + why);
}

// The number of a quantity in the parameter's unit; a bare number is in that unit already.
double inUnit(const COtxValue& quantity, const std::string& unit) {
    const COtxValue displayUnit = quantity.Quantity().GetDisplayUnit();
    const std::string& given = displayUnit.Unit().Name();
    if (unit.empty() || given.empty() || given == unit)
        return quantity.Quantity().GetDisplayValue().Float();
    return COtxQuantity(quantity, COtxUnit(unit), COtxFloat::standardPrecision).Quantity().GetDisplayValue().Float();
}

bool isInteger(const COtxValue& value) {
    const auto& behaviour = value.GetBehaviourReference();
    return behaviour != nullptr && behaviour->IsInt();
}

// Without the point of a whole number.
std::string numberText(double number) {
    if (std::abs(number) < 1e15 && number == std::trunc(number))
        return std::to_string(static_cast<long long>(number));
    return COtxFloat(number).ToString().String();
}

void checkLimits(double physical, const COtxValue& value, const ParameterDescription& parameter) {
    if (std::isnan(physical) && parameter.coding != Coding::Float)
        refuse(parameter, value, " is no number");
    if (parameter.minimum && physical < *parameter.minimum)
        refuse(parameter, value, " is below the minimum " + numberText(*parameter.minimum));
    if (parameter.maximum && physical > *parameter.maximum)
        refuse(parameter, value, " is above the maximum " + numberText(*parameter.maximum));
}

std::uint64_t floatBits(double number, const COtxValue& value, const ParameterDescription& parameter) {
    if (parameter.bitLength > 32)
        return std::bit_cast<std::uint64_t>(number);
    const auto single = static_cast<float>(number);
    if (std::isinf(single) && !std::isinf(number))
        refuse(parameter, value, " doesn't fit into 32 bits");
    return std::bit_cast<std::uint32_t>(single);
}

std::uint64_t bcdBits(std::uint64_t number) {
    std::uint64_t bits = 0;
    for (unsigned shift = 0; number > 0 && shift < 64; shift += 4, number /= 10)
        bits |= (number % 10) << shift;
    return bits;
}

// The largest coded number, as the bits of an unsigned one.
std::uint64_t largest(const ParameterDescription& parameter) {
    const std::size_t bits = std::min<std::size_t>(parameter.bitLength, 64);
    if (parameter.coding == Coding::Bcd) {
        std::uint64_t most = 0;
        for (std::size_t digit = 0; digit < bits / 4; ++digit)
            most = most * 10 + 9;
        return most;
    }
    const std::size_t magnitude = parameter.coding == Coding::Signed ? bits - 1 : bits;
    return magnitude >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << magnitude) - 1;
}

// The coded number as sign and magnitude; nothing when it is beyond 64 bits.
struct Whole {
    bool negative;
    std::uint64_t magnitude;
};

std::optional<Whole> wholeOf(double number) {
    const double nearest = std::round(number);
    if (!(std::abs(nearest) < 18446744073709551616.0))
        return std::nullopt;
    return Whole{nearest < 0, static_cast<std::uint64_t>(std::abs(nearest))};
}

Whole wholeOf(long long number) {
    const auto bits = static_cast<std::uint64_t>(number);
    return {number < 0, number < 0 ? 0 - bits : bits};
}

std::optional<Whole> codedNumber(const COtxValue& value, double physical, const ParameterDescription& parameter) {
    // Exact, where a double isn't.
    if (isInteger(value) && parameter.scaling.isIdentity())
        return wholeOf(value.Int());
    return wholeOf((physical - parameter.scaling.offset) / parameter.scaling.factor);
}

std::uint64_t numberBits(const COtxValue& value, const ParameterDescription& parameter) {
    const double physical = convertedFor(parameter, [&] { return numberIn(value, parameter.unit); });
    checkLimits(physical, value, parameter);
    if (parameter.coding == Coding::Float)
        return floatBits((physical - parameter.scaling.offset) / parameter.scaling.factor, value, parameter);
    const auto whole = codedNumber(value, physical, parameter);
    const std::uint64_t most = largest(parameter);
    // Two's complement reaches one further below zero.
    const bool fits = whole && (!whole->negative ? whole->magnitude <= most
                                                 : whole->magnitude == 0 || (parameter.coding == Coding::Signed &&
                                                                             whole->magnitude - 1 <= most));
    if (!fits && parameter.coding != Coding::Signed && physical < 0 && parameter.scaling.isIdentity())
        refuse(parameter, value, " is negative");
    if (!fits)
        refuse(parameter, value, " doesn't fit into " + std::to_string(parameter.bitLength) + " bits");
    if (parameter.coding == Coding::Bcd)
        return bcdBits(whole->magnitude);
    const std::uint64_t bits = whole->negative ? 0 - whole->magnitude : whole->magnitude;
    return parameter.bitLength >= 64 ? bits : bits & ((std::uint64_t{1} << parameter.bitLength) - 1);
}

std::uint64_t tableBits(const COtxValue& value, const ParameterDescription& parameter) {
    const auto& texts = parameter.texts;
    if (value.Type() == ValueType::String) {
        const auto entry = std::find_if(texts.begin(), texts.end(),
                                        [&](const TextEntry& candidate) { return candidate.text == value.String(); });
        if (entry == texts.end())
            refuse(parameter, value, " is none of its texts");
        return entry->from;
    }
    const auto number = convertedFor(parameter, [&] { return value.ToInteger().Int(); });
    const auto bits = static_cast<std::uint64_t>(number);
    const bool known = std::any_of(texts.begin(), texts.end(), [&](const TextEntry& candidate) {
        return number >= 0 && candidate.from <= bits && bits <= candidate.to;
    });
    if (!known)
        refuse(parameter, value, " has none of its texts");
    return bits;
}

Bytes textBytes(const COtxValue& value, const ParameterDescription& parameter) {
    const COtxValue converted = convertedFor(parameter, [&] { return value.ToString(); });
    const std::string& text = converted.String();
    const auto isAscii = [](char character) { return static_cast<unsigned char>(character) < 0x80; };
    if (parameter.coding == Coding::Ascii && !std::all_of(text.begin(), text.end(), isAscii))
        refuse(parameter, value, " is not ASCII");
    Bytes bytes(text.begin(), text.end());
    if (parameter.extent != Extent::Fixed)
        return bytes;
    if (bytes.size() > fixedSize(parameter))
        refuse(parameter, value, " is longer than " + std::to_string(fixedSize(parameter)) + " bytes" +
                                     (value.Type() == ValueType::ByteField ? "; as a text, a ByteField is its digits" : ""));
    bytes.resize(fixedSize(parameter));
    return bytes;
}

Bytes fieldBytes(const COtxValue& value, const ParameterDescription& parameter) {
    const COtxValue field = convertedFor(parameter, [&] { return value.ToByteField(); });
    const std::vector<unsigned char>& bytes = field.ByteField();
    if (parameter.extent == Extent::Fixed && bytes.size() != fixedSize(parameter))
        refuse(parameter, std::to_string(bytes.size()) + " bytes instead of " + std::to_string(fixedSize(parameter)) +
                              (value.Type() == ValueType::String ? "; a String is the bytes of its characters" : ""));
    return bytes;
}

}  // namespace

double numberIn(const COtxValue& value, const std::string& unit) {
    if (value.Type() == ValueType::Quantity)
        return inUnit(value, unit);
    if (value.Type() == ValueType::Boolean)
        return value.Bool() ? 1 : 0;
    return value.ToFloat().Float();
}

CodedValue encoded(const COtxValue& value, const ParameterDescription& parameter) {
    switch (parameter.coding) {
        case Coding::Boolean:
            return std::uint64_t{convertedFor(parameter, [&] { return value.ToBoolean().Bool(); })};
        case Coding::TextTable: return tableBits(value, parameter);
        case Coding::Ascii:
        case Coding::Utf8: return textBytes(value, parameter);
        case Coding::ByteField: return fieldBytes(value, parameter);
        default: return numberBits(value, parameter);
    }
}

CodedValue encodedCount(std::size_t count, const ParameterDescription& parameter) {
    return encoded(COtxInt(static_cast<long long>(count)), parameter);
}

}  // namespace velkotx::host
