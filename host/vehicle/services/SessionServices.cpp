// Sessions, reset, tester present, communication control, DTC setting.
#include "vehicle/services/Services.h"

#include <algorithm>

namespace velkotx::host::services {

namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;

// The server's P2 in milliseconds, and its P2* in tens of them.
void putTimes(Exchange& exchange, const SessionDescription& session) {
    exchange.put(static_cast<std::uint64_t>(duration_cast<milliseconds>(session.p2).count()), 2);
    exchange.put(static_cast<std::uint64_t>(duration_cast<milliseconds>(session.p2Star).count() / 10), 2);
}

bool canEnter(const SessionDescription& session, std::uint8_t from) {
    return session.from.empty() || std::find(session.from.begin(), session.from.end(), from) != session.from.end();
}

}  // namespace

ResponseCode diagnosticSessionControl(Exchange& exchange) {
    if (exchange.request.size() != 2)
        return ResponseCode::IncorrectLength;
    for (const SessionDescription& session : exchange.unit.sessions) {
        if (session.id != exchange.subfunction())
            continue;
        if (!canEnter(session, exchange.state.session().id))
            return ResponseCode::SubfunctionNotSupportedInActiveSession;
        exchange.state.enter(session);
        exchange.put(session.id, 1);
        putTimes(exchange, session);
        return ResponseCode::Positive;
    }
    return ResponseCode::SubfunctionNotSupported;
}

ResponseCode ecuReset(Exchange& exchange) {
    if (exchange.request.size() != 2)
        return ResponseCode::IncorrectLength;
    exchange.put(exchange.subfunction(), 1);
    exchange.resets = true;
    return ResponseCode::Positive;
}

ResponseCode testerPresent(Exchange& exchange) {
    if (exchange.request.size() != 2)
        return ResponseCode::IncorrectLength;
    exchange.put(exchange.subfunction(), 1);
    return ResponseCode::Positive;
}

ResponseCode communicationControl(Exchange& exchange) {
    if (exchange.request.size() != 3)
        return ResponseCode::IncorrectLength;
    if ((exchange.request[2] & 0x03) == 0)  // neither application nor network management messages
        return ResponseCode::RequestOutOfRange;
    exchange.state.communication = exchange.subfunction();
    exchange.put(exchange.subfunction(), 1);
    return ResponseCode::Positive;
}

ResponseCode controlDtcSetting(Exchange& exchange) {
    exchange.state.recordsTroubleCodes = exchange.subfunction() == 1;
    exchange.put(exchange.subfunction(), 1);
    return ResponseCode::Positive;
}

}  // namespace velkotx::host::services
