// The response codes of ISO 14229-1, annex A, that the simulation sends of itself.
#pragma once

#include <cstdint>

namespace velkotx::host {

enum class ResponseCode : std::uint8_t {
    Positive = 0x00,
    ServiceNotSupported = 0x11,
    SubfunctionNotSupported = 0x12,
    IncorrectLength = 0x13,
    ResponseTooLong = 0x14,
    BusyRepeatRequest = 0x21,
    ConditionsNotCorrect = 0x22,
    RequestSequenceError = 0x24,
    RequestOutOfRange = 0x31,
    SecurityAccessDenied = 0x33,
    InvalidKey = 0x35,
    ExceededNumberOfAttempts = 0x36,
    RequiredTimeDelayNotExpired = 0x37,
    UploadDownloadNotAccepted = 0x70,
    TransferDataSuspended = 0x71,
    GeneralProgrammingFailure = 0x72,
    WrongBlockSequenceCounter = 0x73,
    ResponsePending = 0x78,
    SubfunctionNotSupportedInActiveSession = 0x7E,
    ServiceNotSupportedInActiveSession = 0x7F,
};

}  // namespace velkotx::host
