// Values as they stand in PDUs: what they mean.
#include "diag/CodedValue.h"
#include "diag/Conversion.h"
#include "diag/DiagFailure.h"

#include <otx/value/COtxBool.h>
#include <otx/value/COtxByteField.h>
#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxQuantity.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <type_traits>

namespace velkotx::host {

namespace {

using OTX::Exceptions_e;
using OTX::ValueType;

constexpr int fullPrecision = COtxFloat::standardPrecision;

std::int64_t signedNumber(std::uint64_t bits, std::size_t length) {
    const std::size_t unused = length >= 64 ? 0 : 64 - length;
    return static_cast<std::int64_t>(bits << unused) >> unused;
}

std::uint64_t bcdNumber(std::uint64_t bits, const ParameterDescription& parameter) {
    std::uint64_t number = 0;
    for (std::size_t digit = (parameter.bitLength + 3) / 4; digit-- > 0;) {
        const std::uint64_t value = (bits >> (4 * digit)) & 15;
        if (value > 9)
            fail(Exceptions_e::DiagComException, "parameter '" + parameter.name + "' holds a digit beyond 9");
        number = number * 10 + value;
    }
    return number;
}

// Exact where the number is a whole one as it stands.
bool isWhole(const ParameterDescription& parameter) {
    return parameter.coding != Coding::Float && parameter.scaling.isIdentity();
}

constexpr auto largestInteger = static_cast<std::uint64_t>(std::numeric_limits<long long>::max());

COtxValue wholeNumber(std::uint64_t bits, const ParameterDescription& parameter) {
    if (parameter.coding == Coding::Signed)
        return COtxInt(signedNumber(bits, parameter.bitLength));
    if (parameter.coding == Coding::Bcd)
        return COtxInt(static_cast<long long>(bcdNumber(bits, parameter)));
    if (bits > largestInteger)
        return COtxFloat(static_cast<double>(bits));
    return COtxInt(static_cast<long long>(bits));
}

COtxValue wholeInteger(std::uint64_t bits, const ParameterDescription& parameter) {
    if (parameter.coding != Coding::Signed && parameter.coding != Coding::Bcd && bits > largestInteger)
        fail(Exceptions_e::DiagComException,
             "parameter '" + parameter.name + "': " + std::to_string(bits) + " is beyond a 64-bit Integer");
    return wholeNumber(bits, parameter);
}

// Significant digits, of a parameter that tells how many behind the point make sense.
int precisionOf(double value, const ParameterDescription& parameter) {
    if (parameter.decimals < 0)
        return fullPrecision;
    const double size = std::abs(value);
    const int whole = size >= 1 && std::isfinite(size) ? static_cast<int>(std::floor(std::log10(size))) + 1 : 1;
    return std::clamp(whole + parameter.decimals, 1, fullPrecision);
}

COtxValue plainNumber(std::uint64_t bits, const ParameterDescription& parameter) {
    if (isWhole(parameter))
        return wholeNumber(bits, parameter);
    const double value = physicalNumber(bits, parameter);
    return COtxFloat(value, precisionOf(value, parameter));
}

// Scaling leaves 28.999999999999996 where 29 is meant.
COtxValue integerOf(double value) {
    const double nearest = std::nearbyint(value);
    if (std::abs(value - nearest) <= 1e-9 * std::max(1.0, std::abs(value)))
        return COtxFloat(nearest).ToInteger();
    return COtxFloat(value).ToInteger();
}

COtxValue quantityOf(double value, const ParameterDescription& parameter) {
    return COtxQuantity(value, COtxUnit(parameter.unit), precisionOf(value, parameter));
}

COtxValue numberAs(std::uint64_t bits, const ParameterDescription& parameter, ValueType type) {
    switch (type) {
        case ValueType::Boolean:
            return COtxBool(physicalNumber(bits, parameter) != 0);
        case ValueType::Integer:
            return isWhole(parameter) ? wholeInteger(bits, parameter)
                                      : convertedFor(parameter, [&] { return integerOf(physicalNumber(bits, parameter)); });
        case ValueType::Float:
            return plainNumber(bits, parameter).ToFloat();
        case ValueType::Quantity:
            return quantityOf(physicalNumber(bits, parameter), parameter);
        case ValueType::String:
            return plainNumber(bits, parameter).ToString();
        default:
            return parameter.unit.empty() ? plainNumber(bits, parameter)
                                          : quantityOf(physicalNumber(bits, parameter), parameter);
    }
}

COtxValue textOf(std::uint64_t bits, const ParameterDescription& parameter) {
    const auto entry = std::find_if(parameter.texts.begin(), parameter.texts.end(), [&](const TextEntry& candidate) {
        return candidate.from <= bits && bits <= candidate.to;
    });
    if (entry == parameter.texts.end())
        fail(Exceptions_e::DiagComException,
             "parameter '" + parameter.name + "' has no text for " + std::to_string(bits));
    return COtxString(entry->text);
}

// The parameter's own type, from which the library's conversions start.
COtxValue natural(const CodedValue& value, const ParameterDescription& parameter) {
    if (const auto* const bytes = std::get_if<Bytes>(&value)) {
        if (parameter.coding == Coding::ByteField)
            return COtxByteField(*bytes);
        const auto isFilling = [](std::uint8_t byte) { return byte == 0; };
        const auto end = std::find_if_not(bytes->rbegin(), bytes->rend(), isFilling).base();
        const auto encoding = parameter.coding == Coding::Ascii ? COtxStringEncoding::UsAscii : COtxStringEncoding::Utf8;
        return convertedFor(parameter, [&]() -> COtxValue {
            return COtxString(std::vector<unsigned char>(bytes->begin(), end), encoding);
        });
    }
    const std::uint64_t bits = std::get<std::uint64_t>(value);
    if (parameter.coding == Coding::Boolean)
        return COtxBool(bits != 0);
    if (parameter.coding == Coding::TextTable)
        return textOf(bits, parameter);
    return numberAs(bits, parameter, ValueType::Empty);
}

COtxValue codedBytes(const CodedValue& value, const ParameterDescription& parameter) {
    if (const auto* const bytes = std::get_if<Bytes>(&value))
        return COtxByteField(*bytes);
    ParameterDescription aligned;
    aligned.bitLength = parameter.bitLength;
    Bytes bytes;
    writeCoded(bytes, 0, value, aligned);
    return COtxByteField(std::move(bytes));
}

COtxValue convertAsItIs(const COtxValue& value, ValueType type) {
    switch (type) {
        case ValueType::Empty: return value;
        case ValueType::Boolean: return value.ToBoolean();
        case ValueType::Integer: return value.ToInteger();
        case ValueType::Float: return value.ToFloat();
        case ValueType::String: return value.ToString();
        case ValueType::Quantity: return value.ToQuantity();
        default:
            fail(Exceptions_e::TypeMismatchException, std::string("it is not to be had as ") + OTX::typeName(type));
    }
}

COtxValue convert(const COtxValue& value, const ParameterDescription& parameter, ValueType type) {
    return convertedFor(parameter, [&] { return convertAsItIs(value, type); });
}

bool isNumberType(ValueType type) {
    return type == ValueType::Integer || type == ValueType::Float || type == ValueType::Quantity ||
           type == ValueType::Boolean || type == ValueType::String || type == ValueType::Empty;
}

// As what the value of a text table, or a Boolean, is the coded number.
bool isNumberOfTable(ValueType type) {
    return type == ValueType::Integer || type == ValueType::Float || type == ValueType::Quantity ||
           type == ValueType::Boolean;
}

}  // namespace

double physicalNumber(std::uint64_t bits, const ParameterDescription& parameter) {
    double number = 0;
    switch (parameter.coding) {
        case Coding::Float:
            number = parameter.bitLength > 32 ? std::bit_cast<double>(bits)
                                              : static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(bits)));
            break;
        case Coding::Signed: number = static_cast<double>(signedNumber(bits, parameter.bitLength)); break;
        case Coding::Bcd: number = static_cast<double>(bcdNumber(bits, parameter)); break;
        default: number = static_cast<double>(bits);
    }
    return number * parameter.scaling.factor + parameter.scaling.offset;
}

COtxValue decoded(const CodedValue& value, const ParameterDescription& parameter, ValueType type) {
    if (type == ValueType::ByteField)
        return codedBytes(value, parameter);
    if (isNumeric(parameter.coding) && isNumberType(type))
        return numberAs(std::get<std::uint64_t>(value), parameter, type);
    if (parameter.coding == Coding::TextTable && isNumberOfTable(type))
        return numberAs(std::get<std::uint64_t>(value), parameter, type);
    if (parameter.coding == Coding::Boolean && isNumberOfTable(type))
        return numberAs(std::get<std::uint64_t>(value) != 0 ? 1 : 0, parameter, type);
    return convert(natural(value, parameter), parameter, type);
}

void failFor(const ParameterDescription& parameter, const COtxValue& failure) {
    const Exceptions_e kind = failure.Exception().Kind();
    const bool ofTheValue = kind == Exceptions_e::ArithmeticException || kind == Exceptions_e::OutOfBoundsException ||
                            kind == Exceptions_e::UnsupportedEncodingException;
    fail(ofTheValue ? Exceptions_e::DiagComException : kind,
         "parameter '" + parameter.name + "': " + std::string(failure.Exception().Text()));
}

COtxValue toValue(const PlainValue& value) {
    return std::visit(
        [](const auto& plain) -> COtxValue {
            using T = std::decay_t<decltype(plain)>;
            if constexpr (std::is_same_v<T, bool>) return COtxBool(plain);
            else if constexpr (std::is_same_v<T, std::int64_t>) return COtxInt(plain);
            else if constexpr (std::is_same_v<T, double>) return COtxFloat(plain);
            else if constexpr (std::is_same_v<T, std::string>) return COtxString(plain);
            else if constexpr (std::is_same_v<T, Bytes>) return COtxByteField(plain);
            else return COtxValue();
        },
        value);
}

}  // namespace velkotx::host
