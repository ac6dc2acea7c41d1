// What every request goes through before and after its service.
#include "vehicle/ServiceFrame.h"

#include "vehicle/ServiceTable.h"

namespace velkotx::host {

namespace {

constexpr std::uint8_t suppressBit = 0x80;

const ServiceAccess* findAccess(const ControlUnitDescription& unit, std::uint8_t service,
                                std::optional<std::uint8_t> subfunction) {
    for (const ServiceAccess& access : unit.access)
        if (access.service == service && access.subfunction == subfunction)
            return &access;
    return nullptr;
}

ResponseCode checkService(const Exchange& exchange, const ServiceEntry* entry) {
    const std::uint8_t service = exchange.request.front();
    const ServiceAccess* access = findAccess(exchange.unit, service, std::nullopt);
    if (entry == nullptr || (access != nullptr && !access->supported))
        return ResponseCode::ServiceNotSupported;
    const bool toldSessions = access != nullptr && !access->condition.sessions.empty();
    if (toldSessions ? !exchange.state.sessionFits(access->condition)
                     : exchange.state.isDefaultSession() && !entry->inDefaultSession)
        return ResponseCode::ServiceNotSupportedInActiveSession;
    if (access != nullptr && !exchange.state.securityFits(access->condition))
        return ResponseCode::SecurityAccessDenied;
    return ResponseCode::Positive;
}

ResponseCode checkSubfunction(const Exchange& exchange, const ServiceEntry& entry) {
    if (exchange.request.size() < 2)
        return ResponseCode::IncorrectLength;
    const std::uint8_t subfunction = exchange.subfunction();
    const ServiceAccess* access = findAccess(exchange.unit, entry.id, subfunction);
    if (!entry.hasSubfunction(exchange.unit, subfunction) || (access != nullptr && !access->supported))
        return ResponseCode::SubfunctionNotSupported;
    if (access == nullptr)
        return ResponseCode::Positive;
    if (!exchange.state.sessionFits(access->condition))
        return ResponseCode::SubfunctionNotSupportedInActiveSession;
    return exchange.state.securityFits(access->condition) ? ResponseCode::Positive : ResponseCode::SecurityAccessDenied;
}

ResponseCode answer(Exchange& exchange, const ServiceEntry* entry) {
    if (const ResponseCode code = checkService(exchange, entry); code != ResponseCode::Positive)
        return code;
    if (entry->hasSubfunction != nullptr)
        if (const ResponseCode code = checkSubfunction(exchange, *entry); code != ResponseCode::Positive)
            return code;
    if (exchange.request.size() < entry->minimumLength)
        return ResponseCode::IncorrectLength;
    exchange.answer.assign(1, static_cast<std::uint8_t>(entry->id + 0x40));
    const ResponseCode code = entry->handler(exchange);
    const bool tooLong = exchange.answer.size() > exchange.unit.maxResponseLength;
    return code == ResponseCode::Positive && tooLong ? ResponseCode::ResponseTooLong : code;
}

// ISO 14229-1, table 5: whoever isn't concerned doesn't answer what goes to everybody.
bool isKeptFromGroup(ResponseCode code) {
    switch (code) {
    case ResponseCode::ServiceNotSupported:
    case ResponseCode::SubfunctionNotSupported:
    case ResponseCode::RequestOutOfRange:
    case ResponseCode::SubfunctionNotSupportedInActiveSession:
    case ResponseCode::ServiceNotSupportedInActiveSession:
        return true;
    default:
        return false;
    }
}

}  // namespace

FrameResult serve(Exchange& exchange, bool functional) {
    const std::uint8_t service = exchange.request.front();
    const ServiceEntry* entry = findService(exchange.unit, service);
    FrameResult result;
    result.code = answer(exchange, entry);
    if (result.code != ResponseCode::Positive) {
        exchange.answer = negativeResponse(service, result.code);
        result.suppressed = functional && isKeptFromGroup(result.code);
    } else {
        result.suppressed = entry->hasSubfunction != nullptr && (exchange.request[1] & suppressBit) != 0;
    }
    return result;
}

Bytes negativeResponse(std::uint8_t service, ResponseCode code) {
    return {0x7F, service, static_cast<std::uint8_t>(code)};
}

}  // namespace velkotx::host
