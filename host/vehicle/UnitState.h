// What a simulated control unit remembers from one request to the next.
#pragma once

#include <vehicle/ControlUnitDescription.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace velkotx::host {

// The bytes of a memory area.
struct MemoryState {
    const MemoryDescription* description;
    Bytes bytes;
};

struct SecurityState {
    unsigned wrongKeys = 0;
    Clock::Time lockedUntil{0};
};

struct TransferState {
    bool active = false;
    bool upload = false;
    bool mayEndEarly = false;     // a format that packs the data: fewer bytes than announced will come
    MemoryState* memory = nullptr;
    std::uint64_t offset = 0;     // of the next byte, in the area
    std::uint64_t remaining = 0;
    std::uint8_t lastCounter = 0;
    bool begun = false;           // a block was taken, `lastCounter` is its number
    Bytes lastAnswer;
};

struct RoutineState {
    bool started = false;
    bool stopped = false;
    Clock::Time doneAt{0};
    Bytes extra;  // status bytes that its effect adds to the results
};

struct DataIdentifierState {
    std::uint64_t reads = 0;
    Bytes written;     // replaces the sources once it was written
    bool controlled = false;
    Bytes controlValue;
};

// Not thread-safe: its control unit guards it.
class UnitState {
public:
    explicit UnitState(const ControlUnitDescription& unit);

    const SessionDescription& session() const { return *session_; }
    bool isDefaultSession() const { return session_->id == 1; }
    // Enters a session: security is locked, and what only lasts for a session ends. ISO 14229-1, 9.2.
    void enter(const SessionDescription& session);
    // Back to the default session when S3 has run out.
    void expire(Clock::Time now);
    // Begins anew; what is written to data identifiers and memory, and the trouble codes, stay.
    void reset(Clock::Time at);

    bool fulfils(const AccessCondition& condition) const { return sessionFits(condition) && securityFits(condition); }
    bool sessionFits(const AccessCondition& condition) const;
    bool securityFits(const AccessCondition& condition) const;
    // The area that holds all of the bytes, or nullptr.
    MemoryState* findMemory(std::uint64_t address, std::uint64_t size);
    MemoryState* findMemory(const std::string& name);
    std::uint32_t nextRandom();

    Clock::Time lastActivity{0};
    Clock::Time busyUntil{0};
    Clock::Time awayUntil{0};  // after a reset
    std::uint8_t unlocked = 0;  // the security level, 0: none
    std::uint8_t seededLevel = 0;
    Bytes seed;
    bool recordsTroubleCodes = true;
    std::uint8_t communication = 0;
    std::map<std::uint8_t, SecurityState> securities;
    std::map<std::uint16_t, DataIdentifierState> dataIdentifiers;
    std::map<std::uint16_t, RoutineState> routines;
    std::vector<TroubleCodeDescription> troubleCodes;
    std::vector<MemoryState> memories;
    TransferState transfer;
    std::uint32_t downloadCrc = 0;  // CRC-32 of what was downloaded last

private:
    const ControlUnitDescription& unit_;
    const SessionDescription* session_;
    std::uint32_t random_ = 0x2545F491;  // the same in each run, so that runs can be repeated
};

}  // namespace velkotx::host
