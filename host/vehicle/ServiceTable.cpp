// The services that a simulated control unit can have.
#include "vehicle/ServiceTable.h"

#include "vehicle/services/Services.h"

#include <algorithm>
#include <array>

namespace velkotx::host {

namespace {

using Unit = ControlUnitDescription;

bool always(const Unit&) {
    return true;
}

template <auto Items>
bool has(const Unit& unit) {
    return !(unit.*Items).empty();
}

template <auto Right>
bool hasIdentifier(const Unit& unit) {
    return std::any_of(unit.dataIdentifiers.begin(), unit.dataIdentifiers.end(),
                       [](const DataIdentifierDescription& identifier) { return identifier.*Right; });
}

template <auto Right>
bool hasMemory(const Unit& unit) {
    return std::any_of(unit.memories.begin(), unit.memories.end(),
                       [](const MemoryDescription& memory) { return memory.*Right; });
}

bool transfers(const Unit& unit) {
    return hasMemory<&MemoryDescription::download>(unit) || hasMemory<&MemoryDescription::upload>(unit);
}

bool isSession(const Unit& unit, std::uint8_t subfunction) {
    return std::any_of(unit.sessions.begin(), unit.sessions.end(),
                       [&](const SessionDescription& session) { return session.id == subfunction; });
}

bool isSecurity(const Unit& unit, std::uint8_t subfunction) {
    const int level = subfunction % 2 == 1 ? subfunction : subfunction - 1;
    return std::any_of(unit.securities.begin(), unit.securities.end(),
                       [&](const SecurityDescription& security) { return security.level == level; });
}

template <std::uint8_t First, std::uint8_t Last>
bool isFrom(const Unit&, std::uint8_t subfunction) {
    return subfunction >= First && subfunction <= Last;
}

bool isReport(const Unit&, std::uint8_t subfunction) {
    constexpr std::array<std::uint8_t, 6> reports{0x01, 0x02, 0x03, 0x04, 0x06, 0x0A};
    return std::find(reports.begin(), reports.end(), subfunction) != reports.end();
}

constexpr auto readable = &DataIdentifierDescription::readable;
constexpr auto writable = &DataIdentifierDescription::writable;
constexpr auto controllable = &DataIdentifierDescription::controllable;

constexpr std::array table{
    ServiceEntry{0x10, services::diagnosticSessionControl, 2, true, always, isSession},
    ServiceEntry{0x11, services::ecuReset, 2, true, always, isFrom<1, 3>},
    ServiceEntry{0x14, services::clearDiagnosticInformation, 4, true, always, nullptr},
    ServiceEntry{0x19, services::readDtcInformation, 2, true, always, isReport},
    ServiceEntry{0x22, services::readDataByIdentifier, 3, true, hasIdentifier<readable>, nullptr},
    ServiceEntry{0x23, services::readMemoryByAddress, 4, true, hasMemory<&MemoryDescription::readable>, nullptr},
    ServiceEntry{0x27, services::securityAccess, 2, false, has<&Unit::securities>, isSecurity},
    ServiceEntry{0x28, services::communicationControl, 3, false, always, isFrom<0, 3>},
    ServiceEntry{0x2E, services::writeDataByIdentifier, 4, true, hasIdentifier<writable>, nullptr},
    ServiceEntry{0x2F, services::inputOutputControl, 4, false, hasIdentifier<controllable>, nullptr},
    ServiceEntry{0x31, services::routineControl, 4, true, has<&Unit::routines>, isFrom<1, 3>},
    ServiceEntry{0x34, services::requestDownload, 5, false, hasMemory<&MemoryDescription::download>, nullptr},
    ServiceEntry{0x35, services::requestUpload, 5, false, hasMemory<&MemoryDescription::upload>, nullptr},
    ServiceEntry{0x36, services::transferData, 2, false, transfers, nullptr},
    ServiceEntry{0x37, services::requestTransferExit, 1, false, transfers, nullptr},
    ServiceEntry{0x3D, services::writeMemoryByAddress, 5, true, hasMemory<&MemoryDescription::writable>, nullptr},
    ServiceEntry{0x3E, services::testerPresent, 2, true, always, isFrom<0, 0>},
    ServiceEntry{0x85, services::controlDtcSetting, 2, false, always, isFrom<1, 2>},
};

}  // namespace

const ServiceEntry* findKnownService(std::uint8_t id) {
    for (const ServiceEntry& entry : table)
        if (entry.id == id)
            return &entry;
    return nullptr;
}

const ServiceEntry* findService(const ControlUnitDescription& unit, std::uint8_t id) {
    const ServiceEntry* const entry = findKnownService(id);
    return entry != nullptr && entry->offered(unit) ? entry : nullptr;
}

}  // namespace velkotx::host
