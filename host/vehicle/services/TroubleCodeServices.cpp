// Trouble codes: read and clear.
#include "vehicle/services/Services.h"

#include <algorithm>

namespace velkotx::host::services {

namespace {

constexpr std::uint8_t allRecords = 0xFF;
constexpr std::uint8_t formatOfIso14229 = 0x01;

bool matches(const Exchange& exchange, const TroubleCodeDescription& code, std::uint8_t mask) {
    return (code.status & exchange.unit.statusAvailability & mask) != 0;
}

void putCode(Exchange& exchange, const TroubleCodeDescription& code) {
    exchange.put(code.code, 3);
    exchange.put(static_cast<std::uint8_t>(code.status & exchange.unit.statusAvailability), 1);
}

ResponseCode countByStatus(Exchange& exchange) {
    if (exchange.request.size() != 3)
        return ResponseCode::IncorrectLength;
    const auto& codes = exchange.state.troubleCodes;
    const auto count = std::count_if(codes.begin(), codes.end(),
                                     [&](const auto& code) { return matches(exchange, code, exchange.request[2]); });
    exchange.put(exchange.unit.statusAvailability, 1);
    exchange.put(formatOfIso14229, 1);
    exchange.put(static_cast<std::uint64_t>(count), 2);
    return ResponseCode::Positive;
}

ResponseCode listByStatus(Exchange& exchange) {
    if (exchange.request.size() != 3)
        return ResponseCode::IncorrectLength;
    exchange.put(exchange.unit.statusAvailability, 1);
    for (const TroubleCodeDescription& code : exchange.state.troubleCodes)
        if (matches(exchange, code, exchange.request[2]))
            putCode(exchange, code);
    return ResponseCode::Positive;
}

ResponseCode listSupported(Exchange& exchange) {
    if (exchange.request.size() != 2)
        return ResponseCode::IncorrectLength;
    exchange.put(exchange.unit.statusAvailability, 1);
    for (const TroubleCodeDescription& code : exchange.state.troubleCodes)
        putCode(exchange, code);
    return ResponseCode::Positive;
}

ResponseCode listSnapshots(Exchange& exchange) {
    if (exchange.request.size() != 2)
        return ResponseCode::IncorrectLength;
    for (const TroubleCodeDescription& code : exchange.state.troubleCodes)
        for (const SnapshotDescription& snapshot : code.snapshots) {
            exchange.put(code.code, 3);
            exchange.put(snapshot.record, 1);
        }
    return ResponseCode::Positive;
}

void putRecord(Exchange& exchange, const SnapshotDescription& snapshot) {
    exchange.put(snapshot.record, 1);
    exchange.put(snapshot.data.size(), 1);
    for (const auto& [identifier, bytes] : snapshot.data) {
        exchange.put(identifier, 2);
        exchange.put(bytes);
    }
}

void putRecord(Exchange& exchange, const ExtendedDataDescription& extended) {
    exchange.put(extended.record, 1);
    exchange.put(extended.data);
}

// The records of one trouble code: the one that is asked for, or all.
template <typename Record>
ResponseCode records(Exchange& exchange, std::vector<Record> TroubleCodeDescription::* which) {
    if (exchange.request.size() != 6)
        return ResponseCode::IncorrectLength;
    const auto& codes = exchange.state.troubleCodes;
    const auto code = std::find_if(codes.begin(), codes.end(),
                                   [&](const auto& each) { return each.code == exchange.number(2, 3); });
    if (code == codes.end())
        return ResponseCode::RequestOutOfRange;
    putCode(exchange, *code);
    const std::uint8_t wanted = exchange.request[5];
    bool found = wanted == allRecords;
    for (const Record& record : (*code).*which)
        if (wanted == allRecords || wanted == record.record) {
            putRecord(exchange, record);
            found = true;
        }
    return found ? ResponseCode::Positive : ResponseCode::RequestOutOfRange;
}

ResponseCode report(Exchange& exchange) {
    switch (exchange.subfunction()) {
    case 0x01:
        return countByStatus(exchange);
    case 0x02:
        return listByStatus(exchange);
    case 0x03:
        return listSnapshots(exchange);
    case 0x04:
        return records(exchange, &TroubleCodeDescription::snapshots);
    case 0x06:
        return records(exchange, &TroubleCodeDescription::extendedData);
    case 0x0A:
        return listSupported(exchange);
    default:
        return ResponseCode::SubfunctionNotSupported;
    }
}

}  // namespace

ResponseCode readDtcInformation(Exchange& exchange) {
    exchange.put(exchange.subfunction(), 1);
    return report(exchange);
}

ResponseCode clearDiagnosticInformation(Exchange& exchange) {
    constexpr std::uint64_t allGroups = 0xFFFFFF;
    if (exchange.request.size() != 4)
        return ResponseCode::IncorrectLength;
    const std::uint64_t group = exchange.number(1, 3);
    bool found = group == allGroups;
    for (TroubleCodeDescription& code : exchange.state.troubleCodes) {
        if (group != allGroups && code.code != group)
            continue;
        code.status = code.statusAfterClear;
        code.snapshots.clear();
        code.extendedData.clear();
        found = true;
    }
    return found ? ResponseCode::Positive : ResponseCode::RequestOutOfRange;
}

}  // namespace velkotx::host::services
