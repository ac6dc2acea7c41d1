// Security access: seeds, keys, attempts and delays.
#include "vehicle/services/Services.h"

#include "vehicle/SeedKey.h"

#include <algorithm>

namespace velkotx::host::services {

namespace {

const SecurityDescription* findLevel(const ControlUnitDescription& unit, std::uint8_t level) {
    const auto found = std::find_if(unit.securities.begin(), unit.securities.end(),
                                    [&](const SecurityDescription& security) { return security.level == level; });
    return found == unit.securities.end() ? nullptr : &*found;
}

Bytes makeSeed(const SecurityDescription& security, UnitState& state) {
    if (!security.seed.empty())
        return security.seed;
    Bytes seed(security.seedLength);
    for (std::uint8_t& byte : seed)
        byte = static_cast<std::uint8_t>(state.nextRandom() >> 16U);
    seed.back() |= 1U;  // all zeros would mean that the level is unlocked already
    return seed;
}

ResponseCode requestSeed(Exchange& exchange, const SecurityDescription& security) {
    UnitState& state = exchange.state;
    if (exchange.now < state.securities[security.level].lockedUntil)
        return ResponseCode::RequiredTimeDelayNotExpired;
    exchange.put(security.level, 1);
    if (state.unlocked == security.level) {
        exchange.put(Bytes(security.seedLength, 0));
        return ResponseCode::Positive;
    }
    state.seed = makeSeed(security, state);
    state.seededLevel = security.level;
    exchange.put(state.seed);
    return ResponseCode::Positive;
}

// A wrong key counts; at the limit the delay begins, and after it there is one more attempt. ISO 14229-1, annex I.
ResponseCode refuseKey(const SecurityDescription& security, SecurityState& tries, Clock::Time now) {
    if (++tries.wrongKeys < security.attempts)
        return ResponseCode::InvalidKey;
    tries.wrongKeys = security.attempts - 1;
    tries.lockedUntil = now + security.delay;
    return ResponseCode::ExceededNumberOfAttempts;
}

ResponseCode sendKey(Exchange& exchange, const SecurityDescription& security) {
    UnitState& state = exchange.state;
    if (state.seededLevel != security.level)
        return ResponseCode::RequestSequenceError;
    const Bytes key = findSeedKey(security.algorithm)(state.seed, security.constant);
    const auto sent = exchange.request.subspan(2);
    if (sent.size() != key.size())
        return ResponseCode::IncorrectLength;
    SecurityState& tries = state.securities[security.level];
    state.seededLevel = 0;
    if (!std::equal(sent.begin(), sent.end(), key.begin()))
        return refuseKey(security, tries, exchange.now);
    tries.wrongKeys = 0;
    state.unlocked = security.level;
    exchange.put(exchange.subfunction(), 1);
    return ResponseCode::Positive;
}

}  // namespace

ResponseCode securityAccess(Exchange& exchange) {
    const std::uint8_t subfunction = exchange.subfunction();
    const bool asksSeed = subfunction % 2 == 1;
    const SecurityDescription* security =
        findLevel(exchange.unit, asksSeed ? subfunction : static_cast<std::uint8_t>(subfunction - 1));
    if (security == nullptr)
        return ResponseCode::SubfunctionNotSupported;
    const bool anySession = security->sessions.empty();
    if (anySession ? exchange.state.isDefaultSession() : !exchange.state.sessionFits({security->sessions, 0}))
        return ResponseCode::SubfunctionNotSupportedInActiveSession;
    return asksSeed ? requestSeed(exchange, *security) : sendKey(exchange, *security);
}

}  // namespace velkotx::host::services
