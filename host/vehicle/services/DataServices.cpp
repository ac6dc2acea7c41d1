// Data identifiers: read, write, and control of inputs and outputs.
#include "vehicle/services/Services.h"

#include "vehicle/DataSource.h"

#include <algorithm>

namespace velkotx::host::services {

namespace {

const DataIdentifierDescription* find(const ControlUnitDescription& unit, std::uint16_t id) {
    const auto found = std::find_if(unit.dataIdentifiers.begin(), unit.dataIdentifiers.end(),
                                    [&](const DataIdentifierDescription& identifier) { return identifier.id == id; });
    return found == unit.dataIdentifiers.end() ? nullptr : &*found;
}

// What the identifier says now: what controls it, what was written to it, or its sources.
Bytes current(Exchange& exchange, const DataIdentifierDescription& identifier) {
    DataIdentifierState& state = exchange.state.dataIdentifiers[identifier.id];
    if (state.controlled)
        return state.controlValue;
    if (!state.written.empty())
        return state.written;
    Bytes bytes;
    appendSources(identifier.data, exchange.now, state.reads, bytes);
    return bytes;
}

ResponseCode readOne(Exchange& exchange, const DataIdentifierDescription& identifier) {
    if (!exchange.state.securityFits(identifier.read))
        return ResponseCode::SecurityAccessDenied;
    exchange.put(identifier.id, 2);
    exchange.put(current(exchange, identifier));
    ++exchange.state.dataIdentifiers[identifier.id].reads;
    return ResponseCode::Positive;
}

// Takes over control as the parameter says; nothing for one that there isn't.
ResponseCode control(Exchange& exchange, const DataIdentifierDescription& identifier) {
    constexpr std::uint8_t returnControl = 0, resetToDefault = 1, freeze = 2, adjust = 3;
    const std::uint8_t parameter = exchange.request[3];
    const auto value = exchange.request.subspan(4);
    const std::size_t length = sourceLength(identifier.data);
    if (parameter > adjust)
        return ResponseCode::RequestOutOfRange;
    if (parameter == adjust ? value.size() != length : !value.empty())
        return ResponseCode::IncorrectLength;
    if (!exchange.state.securityFits(identifier.control))
        return ResponseCode::SecurityAccessDenied;
    const Bytes frozen = current(exchange, identifier);
    DataIdentifierState& state = exchange.state.dataIdentifiers[identifier.id];
    state.controlled = parameter != returnControl;
    if (parameter == adjust)
        state.controlValue.assign(value.begin(), value.end());
    else if (parameter == freeze)
        state.controlValue = frozen;
    else if (parameter == resetToDefault)
        state.controlValue.assign(length, 0);
    exchange.put(identifier.id, 2);
    exchange.put(parameter, 1);
    exchange.put(current(exchange, identifier));
    return ResponseCode::Positive;
}

}  // namespace

// Identifiers that there aren't, or aren't in this session, are left out as long as one is left. ISO 14229-1, 10.2.
ResponseCode readDataByIdentifier(Exchange& exchange) {
    if (exchange.request.size() % 2 == 0)
        return ResponseCode::IncorrectLength;
    for (std::size_t position = 1; position < exchange.request.size(); position += 2) {
        const DataIdentifierDescription* identifier = find(exchange.unit, exchange.word(position));
        if (identifier == nullptr || !identifier->readable || !exchange.state.sessionFits(identifier->read))
            continue;
        if (const ResponseCode code = readOne(exchange, *identifier); code != ResponseCode::Positive)
            return code;
        if (exchange.answer.size() > exchange.unit.maxResponseLength)
            return ResponseCode::ResponseTooLong;
    }
    return exchange.answer.size() > 1 ? ResponseCode::Positive : ResponseCode::RequestOutOfRange;
}

ResponseCode writeDataByIdentifier(Exchange& exchange) {
    const DataIdentifierDescription* identifier = find(exchange.unit, exchange.word(1));
    if (identifier == nullptr || !identifier->writable || !exchange.state.sessionFits(identifier->write))
        return ResponseCode::RequestOutOfRange;
    const auto data = exchange.request.subspan(3);
    if (data.size() != sourceLength(identifier->data))
        return ResponseCode::IncorrectLength;
    if (!exchange.state.securityFits(identifier->write))
        return ResponseCode::SecurityAccessDenied;
    exchange.state.dataIdentifiers[identifier->id].written.assign(data.begin(), data.end());
    exchange.put(identifier->id, 2);
    return ResponseCode::Positive;
}

ResponseCode inputOutputControl(Exchange& exchange) {
    const DataIdentifierDescription* identifier = find(exchange.unit, exchange.word(1));
    if (identifier == nullptr || !identifier->controllable || !exchange.state.sessionFits(identifier->control))
        return ResponseCode::RequestOutOfRange;
    return control(exchange, *identifier);
}

}  // namespace velkotx::host::services
