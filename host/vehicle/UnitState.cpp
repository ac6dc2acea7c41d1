// What a simulated control unit remembers from one request to the next.
#include "vehicle/UnitState.h"

#include <algorithm>

namespace velkotx::host {

namespace {

const SessionDescription& defaultSession(const ControlUnitDescription& unit) {
    static const SessionDescription standard{};
    for (const SessionDescription& session : unit.sessions)
        if (session.id == 1)
            return session;
    return standard;
}

MemoryState makeMemory(const MemoryDescription& description) {
    MemoryState memory{&description, Bytes(static_cast<std::size_t>(description.size), description.fill)};
    const std::size_t length = std::min(description.content.size(), memory.bytes.size());
    std::copy_n(description.content.begin(), length, memory.bytes.begin());
    return memory;
}

bool contains(const std::vector<std::uint8_t>& all, std::uint8_t one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

}  // namespace

UnitState::UnitState(const ControlUnitDescription& unit)
    : troubleCodes(unit.troubleCodes), unit_(unit), session_(&defaultSession(unit)) {
    for (const MemoryDescription& memory : unit.memories)
        memories.push_back(makeMemory(memory));
    for (const SecurityDescription& security : unit.securities)
        securities[security.level].lockedUntil = security.delayAfterReset ? security.delay : Clock::Duration{0};
}

void UnitState::enter(const SessionDescription& session) {
    session_ = &session;
    unlocked = 0;
    seededLevel = 0;
    transfer = {};
    for (auto& [id, identifier] : dataIdentifiers)
        identifier.controlled = false;
    if (!isDefaultSession())
        return;
    recordsTroubleCodes = true;
    communication = 0;
    for (auto& [id, routine] : routines)
        routine.stopped = true;
}

void UnitState::expire(Clock::Time now) {
    if (!isDefaultSession() && now - lastActivity >= session_->s3)
        enter(defaultSession(unit_));
}

void UnitState::reset(Clock::Time at) {
    enter(defaultSession(unit_));
    routines.clear();
    awayUntil = at + unit_.resetTime;
    for (const SecurityDescription& security : unit_.securities)
        if (security.delayAfterReset) {
            Clock::Time& lockedUntil = securities[security.level].lockedUntil;
            lockedUntil = std::max(lockedUntil, awayUntil + security.delay);
        }
}

bool UnitState::sessionFits(const AccessCondition& condition) const {
    return condition.sessions.empty() || contains(condition.sessions, session_->id);
}

bool UnitState::securityFits(const AccessCondition& condition) const {
    return condition.security == 0 || condition.security == unlocked;
}

MemoryState* UnitState::findMemory(std::uint64_t address, std::uint64_t size) {
    for (MemoryState& memory : memories) {
        const std::uint64_t start = memory.description->start;
        const std::uint64_t length = memory.bytes.size();
        if (address >= start && address - start < length && size <= length - (address - start))
            return &memory;
    }
    return nullptr;
}

MemoryState* UnitState::findMemory(const std::string& name) {
    const auto found = std::find_if(memories.begin(), memories.end(),
                                    [&](const MemoryState& memory) { return memory.description->name == name; });
    return found == memories.end() ? nullptr : &*found;
}

std::uint32_t UnitState::nextRandom() {
    random_ ^= random_ << 13U;
    random_ ^= random_ >> 17U;
    random_ ^= random_ << 5U;
    return random_;
}

}  // namespace velkotx::host
