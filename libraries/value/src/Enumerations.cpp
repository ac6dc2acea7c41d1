// The integer-backed enumerations and their literals.
#include "Enumerations.h"

#include <otx/value/COtxComChannelState.h>
#include <otx/value/COtxConfirmationType.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxLogLevel.h>
#include <otx/value/COtxMessageType.h>
#include <otx/value/COtxResponseState.h>
#include <otx/value/COtxResultState.h>
#include <otx/value/COtxStringEncoding.h>

#include <array>
#include <span>

#include "Make.h"
#include "Refusal.h"
#include "TextValues.h"

namespace otx {

namespace {

using OTX::ValueType;

class EnumerationBehaviour final : public COtxIntBehaviour {
public:
    EnumerationBehaviour(ValueType type, long long number, const std::string& literal)
        : COtxIntBehaviour(number, COtxInt::Decimal, type), literal_(literal) {}

    COtxValue ToString() override { return makeText(literal_); }
    const char* what() const override { return literal_.c_str(); }

private:
    const std::string literal_;
};

using Literals = std::span<const std::string_view>;

// Each literal at its number.
constexpr std::array<std::string_view, 8> resultStates{"ALL_FAILED", "ALL_INVALID", "ALL_NEGATIVE", "ALL_POSITIVE",
                                                       "FAILED",     "INVALID",     "NEGATIVE",     "POSITIVE"};
constexpr std::array<std::string_view, 4> responseStates{"FAILED", "INVALID", "NEGATIVE", "POSITIVE"};
constexpr std::array<std::string_view, 4> comChannelStates{"COMMUNICATION", "ONLINE", "OFFLINE", "CREATED"};
constexpr std::array<std::string_view, 5> messageTypes{"INFO", "WARNING", "ERROR", "YESNO_QUESTION",
                                                       "YESNOCANCEL_QUESTION"};
constexpr std::array<std::string_view, 3> confirmationTypes{"YES", "NO", "CANCEL"};
constexpr std::array<std::string_view, 5> audiences{"SUPPLIER", "DEVELOPMENT", "MANUFACTURING", "AFTERSALES",
                                                    "AFTERMARKET"};
constexpr std::array<std::string_view, 8> logLevels{"ALL", "TRACE", "DEBUG", "INFO", "WARN", "ERROR", "FATAL", "OFF"};
constexpr std::array<std::string_view, 3> connectionStatuses{"eCS_CONNECTED", "eCS_CURRENT", "eCS_NOTCONNECTED"};
constexpr std::array<std::string_view, 9> encodings{"US-ASCII", "ISO-8859-1", "UTF-8", "UTF-16BE", "UTF-16LE",
                                                    "UTF-16",   "BIN",        "OCT",   "HEX"};

Literals literalsOf(ValueType type) noexcept {
    switch (type) {
        case ValueType::ResultState: return resultStates;
        case ValueType::ResponseState: return responseStates;
        case ValueType::ComChannelState: return comChannelStates;
        case ValueType::MessageType: return messageTypes;
        case ValueType::ConfirmationType: return confirmationTypes;
        case ValueType::Audience: return audiences;
        case ValueType::LogLevel: return logLevels;
        case ValueType::ConnectionStatus: return connectionStatuses;
        case ValueType::StringEncoding: return encodings;
        default: return {};
    }
}

bool hasLiteral(ValueType type, int number) noexcept {
    return number >= 0 && static_cast<std::size_t>(number) < literalsOf(type).size();
}

COtxValue makeStringEncoding(int number) {
    if (!hasLiteral(ValueType::StringEncoding, number))
        fail(OTX::Exceptions_e::UnsupportedEncodingException, "Unknown encoding " + std::to_string(number));
    return makeEnumeration(ValueType::StringEncoding, number);
}

COtxValue makeStringEncoding(const std::string& literal) {
    const auto number = enumerationNumber(ValueType::StringEncoding, literal);
    if (!number) fail(OTX::Exceptions_e::UnsupportedEncodingException, "Unknown encoding '" + literal + "'");
    return makeEnumeration(ValueType::StringEncoding, *number);
}

}  // namespace

bool isEnumeration(ValueType type) noexcept { return !literalsOf(type).empty(); }

std::optional<int> enumerationNumber(ValueType type, std::string_view literal) noexcept {
    const Literals literals = literalsOf(type);
    for (std::size_t number = 0; number < literals.size(); ++number) {
        if (literals[number] == literal) return static_cast<int>(number);
    }
    return std::nullopt;
}

std::string enumerationLiteral(ValueType type, int number) {
    if (!hasLiteral(type, number)) return std::to_string(number);
    return std::string(literalsOf(type)[static_cast<std::size_t>(number)]);
}

COtxValue makeEnumeration(ValueType type, int number) {
    if (!hasLiteral(type, number))
        fail(OTX::Exceptions_e::OutOfBoundsException,
             OTX::typeName(type) + " has no literal for the number " + std::to_string(number));
    return makeEnumeration(type, number, enumerationLiteral(type, number));
}

COtxValue makeEnumeration(ValueType type, long long number, const std::string& literal) {
    return makePlain<EnumerationBehaviour>(type, number, literal);
}

}  // namespace otx

using otx::makeEnumeration;
using OTX::ValueType;

COtxResultState::COtxResultState(ResultState value) : COtxValue(makeEnumeration(ValueType::ResultState, value)) {}
COtxResponseState::COtxResponseState(ResponseState value)
    : COtxValue(makeEnumeration(ValueType::ResponseState, value)) {}
COtxComChannelState::COtxComChannelState(ComChannelState value)
    : COtxValue(makeEnumeration(ValueType::ComChannelState, value)) {}
COtxMessageType::COtxMessageType(MessageType value) : COtxValue(makeEnumeration(ValueType::MessageType, value)) {}
COtxConfirmationType::COtxConfirmationType(ConfirmationType value)
    : COtxValue(makeEnumeration(ValueType::ConfirmationType, value)) {}
COtxLogLevel::COtxLogLevel(LogLevel value) : COtxValue(makeEnumeration(ValueType::LogLevel, value)) {}
COtxStringEncoding::COtxStringEncoding(Encoding encoding) : COtxValue(otx::makeStringEncoding(encoding)) {}
COtxStringEncoding::COtxStringEncoding(const std::string& literal) : COtxValue(otx::makeStringEncoding(literal)) {}
