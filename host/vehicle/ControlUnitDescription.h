// A control unit: what is described of it to a tester, and how its simulation behaves. Plain data.
#pragma once

#include <vehicle/Curve.h>
#include <vehicle/ServiceDescription.h>

#include <transport/Clock.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace velkotx::host {

// --- what a tester knows -------------------------------------------------------------------------------------------

// A variant is identified when every one of its matches fits.
struct VariantMatch {
    std::uint16_t dataIdentifier = 0;
    std::size_t position = 0;  // of the first byte that is compared, in the identifier's data
    Bytes bytes;
};

struct VariantDescription {
    std::string name;
    std::vector<VariantMatch> matches;
    std::vector<ServiceDescription> services;  // beside the control unit's; the same name replaces
};

// Simple: `parts` is empty. Complex: a structure of named parts, and no default of its own.
struct ComParameterDescription {
    std::string name;
    PlainValue defaultValue;
    std::vector<ComParameterDescription> parts;
};

// --- how it behaves -------------------------------------------------------------------------------------------------

struct SessionDescription {
    std::string name;
    std::uint8_t id = 1;
    Clock::Duration p2 = std::chrono::milliseconds(50);
    Clock::Duration p2Star = std::chrono::milliseconds(5000);
    Clock::Duration s3 = std::chrono::milliseconds(5000);
    std::vector<std::uint8_t> from;  // sessions from which it can be entered; empty: from all
};

struct SecurityDescription {
    std::string name;
    std::uint8_t level = 1;  // subfunction of requestSeed, odd; sendKey is the next one
    std::string algorithm = "xor";
    Bytes constant;          // of the algorithm
    Bytes seed;              // always this one; empty: another one each time
    std::size_t seedLength = 4;
    unsigned attempts = 3;   // wrong keys before the delay
    Clock::Duration delay = std::chrono::seconds(10);
    bool delayAfterReset = false;
    std::vector<std::uint8_t> sessions;  // empty: all but the default session
};

struct AccessCondition {
    std::vector<std::uint8_t> sessions;  // empty: all
    std::uint8_t security = 0;           // a level; 0: none needed
};

// Who may use a service, or one subfunction of it.
struct ServiceAccess {
    std::uint8_t service = 0;
    std::optional<std::uint8_t> subfunction;
    bool supported = true;
    AccessCondition condition;
};

struct CounterSource {
    std::size_t length = 1;  // bytes
    std::uint64_t start = 0;
    std::uint64_t step = 1;  // added with each time it is read
};

struct CurveSource {
    std::size_t length = 1;  // bytes
    bool isSigned = false;
    Scaling scaling;         // of the coded value
    Curve curve;             // physical values
};

// A piece of what a control unit sends: fixed, counting, or following a curve.
using DataSource = std::variant<Bytes, CounterSource, CurveSource>;

struct DataIdentifierDescription {
    std::string name;
    std::uint16_t id = 0;
    std::vector<DataSource> data;  // one after the other
    AccessCondition read;
    bool readable = true;
    bool writable = false;
    AccessCondition write;
    bool controllable = false;     // by 0x2F
    AccessCondition control;
};

enum class RoutineEffect {
    None,
    EraseMemory,    // fills the memory area with 0xFF
    CheckCrc32,     // the last four bytes of the option record are the CRC-32 (ISO 3309) of what was downloaded last; the
                    // status record gets one byte more: 0 when it fits, 1 when not
};

struct RoutineDescription {
    std::string name;
    std::uint16_t id = 0;
    AccessCondition condition;
    std::optional<std::size_t> optionLength;  // bytes of the option record of start; nothing: any
    std::vector<DataSource> started;          // status record of the answer to start
    std::vector<DataSource> stopped;
    std::vector<DataSource> running;          // status record of requestResults while it runs
    std::vector<DataSource> results;          // and when it is done
    bool canStop = true;
    bool hasResults = true;
    Clock::Duration duration{0};              // from start to done, in the background
    Clock::Duration processing{0};            // of start itself; 0x78 is sent when it takes longer than P2
    RoutineEffect effect = RoutineEffect::None;
    std::string memory;                       // whom the effect is on
};

struct SnapshotDescription {
    std::uint8_t record = 1;
    std::vector<std::pair<std::uint16_t, Bytes>> data;  // data identifiers with what they were
};

struct ExtendedDataDescription {
    std::uint8_t record = 1;
    Bytes data;
};

struct TroubleCodeDescription {
    std::string name;
    std::uint32_t code = 0;  // three bytes
    std::uint8_t status = 0;
    std::uint8_t statusAfterClear = 0x50;  // not tested since, ISO 14229-1 annex D
    std::vector<SnapshotDescription> snapshots;
    std::vector<ExtendedDataDescription> extendedData;
};

struct MemoryDescription {
    std::string name;
    std::uint64_t start = 0;
    std::uint64_t size = 0;
    std::uint8_t fill = 0xFF;
    Bytes content;          // at its beginning
    bool readable = true;   // 0x23
    bool writable = false;  // 0x3D
    bool upload = false;    // 0x35
    bool download = false;  // 0x34
    bool needsErase = false;  // a download to bytes that aren't 0xFF fails
    std::vector<std::uint8_t> formats{0};  // data format identifiers that are taken
    AccessCondition condition;
};

struct TransferDescription {
    std::uint64_t maxBlockLength = 4095;  // bytes of a whole transfer request
    Clock::Duration blockTime{0};         // for each block; 0x78 is sent when it takes longer than P2
};

struct DelayFault {
    Clock::Duration time;
};
struct SilenceFault {};
struct NegativeFault {
    std::uint8_t code;
};
struct PendingFault {
    unsigned times;
    Clock::Duration interval;
};
struct ResetFault {};
struct WrongAnswerFault {
    Bytes answer;
};
struct ShortAnswerFault {
    std::size_t length;  // bytes that are left of the answer
};

struct FaultDescription {
    Bytes request;           // beginning of the requests that it meets; empty: all
    std::uint64_t from = 1;  // the first one that it meets, counted in such requests from 1
    std::uint64_t count = 0;  // how many; 0: all that follow
    std::variant<DelayFault, SilenceFault, NegativeFault, PendingFault, ResetFault, WrongAnswerFault, ShortAnswerFault>
        effect;
};

struct ControlUnitDescription {
    std::string name;
    std::uint32_t requestAddress = 0;
    std::uint32_t responseAddress = 0;
    std::vector<std::string> groups;  // functional groups that it listens to

    std::vector<VariantDescription> variants;
    std::vector<ComParameterDescription> comParameters;  // the vehicle's, and its own; the same name replaces
    std::vector<ServiceDescription> services;            // the vehicle's, and its own; the same name replaces

    std::vector<SessionDescription> sessions;  // has one with id 1, the default session
    std::vector<SecurityDescription> securities;
    std::vector<ServiceAccess> access;
    std::vector<DataIdentifierDescription> dataIdentifiers;
    std::vector<RoutineDescription> routines;
    std::vector<TroubleCodeDescription> troubleCodes;
    std::uint8_t statusAvailability = 0xFF;
    std::vector<MemoryDescription> memories;
    TransferDescription transfer;
    std::size_t maxResponseLength = 4095;
    Clock::Duration responseTime{0};  // of every answer
    Clock::Duration resetTime{0};     // in which it doesn't answer after a reset
    std::vector<FaultDescription> faults;
};

}  // namespace velkotx::host
