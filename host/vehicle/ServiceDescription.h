// What a diagnostic service looks like: its names, and how the parameters of its messages lie in PDUs. Plain data.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace velkotx::host {

using Bytes = std::vector<std::uint8_t>;

// A value as a vehicle file writes it; monostate where it says nothing.
using PlainValue = std::variant<std::monostate, bool, std::int64_t, double, std::string, Bytes>;

enum class Coding {
    Unsigned,   // 1 to 64 bits
    Signed,     // 2 to 64 bits, two's complement
    Float,      // 32 or 64 bits, IEEE 754
    Boolean,    // 1 to 64 bits, false when all are 0
    Ascii,      // whole bytes; a fixed length is filled up with 0, and zeros at the end don't belong to the text
    Utf8,       // as Ascii
    ByteField,  // whole bytes
    Bcd,        // 4 to 64 bits, a digit in each four
    TextTable,  // an unsigned number that stands for one of some texts
};

enum class ByteOrder { HighFirst, LowFirst };

// One line of a text table: all coded values from..to mean the text; `from` is what is written for it.
struct TextEntry {
    std::uint64_t from = 0;
    std::uint64_t to = 0;
    std::string text;
};

// Physical value = coded value * factor + offset.
struct Scaling {
    double factor = 1;
    double offset = 0;

    bool isIdentity() const { return factor == 1 && offset == 0; }
};

enum class ParameterKind {
    Value,      // a simple value, coded as told
    Structure,  // the fields, one after the other
    Repeated,   // the fields, any number of times
};

// How long a value is, or how often a structure is repeated.
enum class Extent {
    Fixed,      // `bitLength` bits (Value), `count` times (Repeated)
    Rest,       // up to the end of the PDU
    Counted,    // as many bytes, or times, as the parameter `countedBy` says: an unsigned value that stands earlier in the
                // same message, on the same level or on one that encloses it
};

struct ParameterDescription {
    std::string name;
    std::string semantic;
    ParameterKind kind = ParameterKind::Value;

    // Where it begins: from the beginning of the PDU (byte 0 is the service identifier), inside a structure from the
    // beginning of the structure, inside a repetition from the beginning of that one. Nothing: behind the parameter before
    // it, at the next whole byte, or behind the prefix.
    std::optional<std::size_t> bytePosition;
    // Of the lowest bit, in the byte that holds the value's lowest bit; 0 is a byte's lowest bit. Numbers only.
    unsigned bitPosition = 0;

    Extent extent = Extent::Fixed;
    std::size_t bitLength = 8;
    std::size_t count = 0;
    std::string countedBy;

    Coding coding = Coding::Unsigned;
    ByteOrder byteOrder = ByteOrder::HighFirst;
    Scaling scaling;
    std::string unit;  // empty: a bare number
    int decimals = -1;  // digits behind the point that make sense; -1: not told
    std::vector<TextEntry> texts;
    std::optional<double> minimum;  // of the physical value
    std::optional<double> maximum;

    // The physical value of a request parameter that nobody set. Nothing: it has to be set.
    PlainValue defaultValue;
    // Physical value that can't be another: what a request writes there, what a response has to have there to be this one.
    PlainValue constant;

    std::vector<ParameterDescription> fields;  // of Structure and Repeated
};

// Whether one of them, or of their fields, has a constant.
inline bool hasConstants(const std::vector<ParameterDescription>& parameters) {
    return std::any_of(parameters.begin(), parameters.end(), [](const ParameterDescription& parameter) {
        return !std::holds_alternative<std::monostate>(parameter.constant) || hasConstants(parameter.fields);
    });
}

// A request or a response. A response is the first of its service's whose prefix and constants fit.
struct MessageDescription {
    std::string name;
    Bytes prefix;  // the bytes that it begins with, the service identifier first
    std::vector<ParameterDescription> parameters;
};

struct ServiceDescription {
    std::string name;
    std::string semantic;
    bool functional = false;  // goes to all control units of the group
    MessageDescription request;
    std::vector<MessageDescription> positive;  // responses
    std::vector<MessageDescription> negative;  // never empty: the reader gives the usual one where the file has none
};

}  // namespace velkotx::host
