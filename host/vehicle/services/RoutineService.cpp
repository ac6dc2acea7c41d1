// Routines: start, stop, results.
#include "vehicle/services/Services.h"

#include "vehicle/DataSource.h"

#include <algorithm>

namespace velkotx::host::services {

namespace {

const RoutineDescription* find(const ControlUnitDescription& unit, std::uint16_t id) {
    const auto found = std::find_if(unit.routines.begin(), unit.routines.end(),
                                    [&](const RoutineDescription& routine) { return routine.id == id; });
    return found == unit.routines.end() ? nullptr : &*found;
}

bool runs(const RoutineState& state, Clock::Time now) {
    return state.started && !state.stopped && now < state.doneAt;
}

// The status byte that a check of the download adds: 0 when the CRC at the end of the option record fits.
Bytes check(const Exchange& exchange) {
    const std::size_t size = exchange.request.size();
    const bool fits = size >= 8 && exchange.number(size - 4, 4) == exchange.state.downloadCrc;
    return {static_cast<std::uint8_t>(fits ? 0 : 1)};
}

void takeEffect(Exchange& exchange, const RoutineDescription& routine, RoutineState& state) {
    MemoryState* memory = exchange.state.findMemory(routine.memory);
    if (routine.effect == RoutineEffect::EraseMemory && memory != nullptr)
        std::fill(memory->bytes.begin(), memory->bytes.end(), std::uint8_t{0xFF});
    if (routine.effect == RoutineEffect::CheckCrc32)
        state.extra = check(exchange);
}

ResponseCode start(Exchange& exchange, const RoutineDescription& routine, RoutineState& state) {
    if (runs(state, exchange.now))
        return ResponseCode::ConditionsNotCorrect;
    state = {true, false, exchange.now + routine.duration, {}};
    takeEffect(exchange, routine, state);
    exchange.processing = routine.processing;
    appendSources(routine.started, exchange.now, 0, exchange.answer);
    if (routine.duration.count() == 0)
        exchange.put(state.extra);
    return ResponseCode::Positive;
}

ResponseCode stop(Exchange& exchange, const RoutineDescription& routine, RoutineState& state) {
    if (!runs(state, exchange.now))
        return ResponseCode::RequestSequenceError;
    state.stopped = true;
    appendSources(routine.stopped, exchange.now, 0, exchange.answer);
    return ResponseCode::Positive;
}

ResponseCode results(Exchange& exchange, const RoutineDescription& routine, const RoutineState& state) {
    if (!state.started)
        return ResponseCode::RequestSequenceError;
    if (runs(state, exchange.now)) {
        appendSources(routine.running, exchange.now, 0, exchange.answer);
        return ResponseCode::Positive;
    }
    appendSources(routine.results, exchange.now, 0, exchange.answer);
    exchange.put(state.extra);
    return ResponseCode::Positive;
}

bool offers(const RoutineDescription& routine, std::uint8_t subfunction) {
    return subfunction == 1 || (subfunction == 2 && routine.canStop) || (subfunction == 3 && routine.hasResults);
}

}  // namespace

ResponseCode routineControl(Exchange& exchange) {
    const RoutineDescription* routine = find(exchange.unit, exchange.word(2));
    if (routine == nullptr || !exchange.state.sessionFits(routine->condition))
        return ResponseCode::RequestOutOfRange;
    if (!exchange.state.securityFits(routine->condition))
        return ResponseCode::SecurityAccessDenied;
    const std::uint8_t subfunction = exchange.subfunction();
    if (!offers(*routine, subfunction))
        return ResponseCode::SubfunctionNotSupported;
    const std::size_t options = exchange.request.size() - 4;
    if (subfunction == 1 ? routine->optionLength && options != *routine->optionLength : options != 0)
        return ResponseCode::IncorrectLength;
    exchange.put(subfunction, 1);
    exchange.put(routine->id, 2);
    RoutineState& state = exchange.state.routines[routine->id];
    if (subfunction == 1)
        return start(exchange, *routine, state);
    return subfunction == 2 ? stop(exchange, *routine, state) : results(exchange, *routine, state);
}

}  // namespace velkotx::host::services
