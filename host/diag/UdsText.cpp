// PDUs in words, for people.
#include "diag/UdsText.h"

#include "diag/UdsProtocol.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velkotx::host {

namespace {

struct Name {
    std::uint8_t number;
    std::string_view text;
};

struct Service {
    std::uint8_t number;
    std::string_view text;
    std::size_t shown;  // bytes behind the service that say what is meant: subfunction, identifier, counter
};

constexpr std::array services{
    Service{0x10, "DiagnosticSessionControl", 1}, Service{0x11, "ECUReset", 1},
    Service{0x14, "ClearDiagnosticInformation", 3}, Service{0x19, "ReadDTCInformation", 1},
    Service{0x22, "ReadDataByIdentifier", 2}, Service{0x23, "ReadMemoryByAddress", 0},
    Service{0x24, "ReadScalingDataByIdentifier", 2}, Service{0x27, "SecurityAccess", 1},
    Service{0x28, "CommunicationControl", 1}, Service{0x29, "Authentication", 1},
    Service{0x2A, "ReadDataByPeriodicIdentifier", 1}, Service{0x2C, "DynamicallyDefineDataIdentifier", 1},
    Service{0x2E, "WriteDataByIdentifier", 2}, Service{0x2F, "InputOutputControlByIdentifier", 2},
    Service{0x31, "RoutineControl", 3}, Service{0x34, "RequestDownload", 0}, Service{0x35, "RequestUpload", 0},
    Service{0x36, "TransferData", 1}, Service{0x37, "RequestTransferExit", 0}, Service{0x38, "RequestFileTransfer", 1},
    Service{0x3D, "WriteMemoryByAddress", 0}, Service{0x3E, "TesterPresent", 1},
    Service{0x84, "SecuredDataTransmission", 0}, Service{0x85, "ControlDTCSetting", 1},
    Service{0x86, "ResponseOnEvent", 1}, Service{0x87, "LinkControl", 1}};

constexpr std::array negativeResponses{
    Name{0x10, "generalReject"}, Name{0x11, "serviceNotSupported"}, Name{0x12, "subFunctionNotSupported"},
    Name{0x13, "incorrectMessageLengthOrInvalidFormat"}, Name{0x14, "responseTooLong"},
    Name{0x21, "busyRepeatRequest"}, Name{0x22, "conditionsNotCorrect"}, Name{0x24, "requestSequenceError"},
    Name{0x25, "noResponseFromSubnetComponent"}, Name{0x26, "failurePreventsExecutionOfRequestedAction"},
    Name{0x31, "requestOutOfRange"}, Name{0x33, "securityAccessDenied"}, Name{0x34, "authenticationRequired"},
    Name{0x35, "invalidKey"}, Name{0x36, "exceedNumberOfAttempts"}, Name{0x37, "requiredTimeDelayNotExpired"},
    Name{0x70, "uploadDownloadNotAccepted"}, Name{0x71, "transferDataSuspended"},
    Name{0x72, "generalProgrammingFailure"}, Name{0x73, "wrongBlockSequenceCounter"},
    Name{0x78, "requestCorrectlyReceivedResponsePending"}, Name{0x7E, "subFunctionNotSupportedInActiveSession"},
    Name{0x7F, "serviceNotSupportedInActiveSession"}, Name{0x92, "voltageTooHigh"}, Name{0x93, "voltageTooLow"}};

void appendHex(std::string& text, std::uint8_t byte) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    text += digits[byte >> 4];
    text += digits[byte & 15];
}

template <class Table>
const typename Table::value_type* find(const Table& table, std::uint8_t number) {
    const auto found = std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.number == number; });
    return found == table.end() ? nullptr : &*found;
}

std::string serviceText(std::uint8_t number) {
    if (const Service* const service = find(services, number))
        return std::string(service->text);
    std::string text = "service ";
    appendHex(text, number);
    return text;
}

// The service with what it is about, such as "ReadDataByIdentifier F190".
std::string subjectText(std::uint8_t number, std::span<const std::uint8_t> rest) {
    std::string text = serviceText(number);
    const Service* const service = find(services, number);
    const std::size_t shown = std::min(service == nullptr ? 0 : service->shown, rest.size());
    if (shown > 0)
        text += ' ';
    for (const std::uint8_t byte : rest.first(shown))
        appendHex(text, byte);
    return text;
}

}  // namespace

std::string hexText(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t most = 32;
    std::string text;
    for (const std::uint8_t byte : bytes.first(std::min(bytes.size(), most))) {
        if (!text.empty())
            text += ' ';
        appendHex(text, byte);
    }
    if (bytes.size() > most)
        text += " ... (" + std::to_string(bytes.size()) + " bytes)";
    return text;
}

std::string negativeResponseText(std::uint8_t code) {
    std::string text;
    if (const Name* const name = find(negativeResponses, code))
        text = std::string(name->text) + " (";
    appendHex(text, code);
    return text.size() > 2 ? text + ")" : text;
}

std::string pduText(std::span<const std::uint8_t> pdu) {
    if (pdu.empty())
        return "nothing";
    if (pdu[0] == uds::negativeResponse) {
        std::string text = pdu.size() > 1 ? serviceText(pdu[1]) : "negative response";
        return text + (pdu.size() > 2 ? ": " + negativeResponseText(pdu[2]) : ": broken off");
    }
    const std::span<const std::uint8_t> rest = pdu.subspan(1);
    const auto asked = static_cast<std::uint8_t>(pdu[0] - uds::positiveOffset);
    // Responses are the numbers that no request has (ISO 14229-1): bit 6 tells them apart.
    if ((pdu[0] & uds::positiveOffset) != 0)
        return subjectText(asked, rest) + ": positive, " + std::to_string(pdu.size()) + " bytes";
    return subjectText(pdu[0], rest);
}

}  // namespace velkotx::host
