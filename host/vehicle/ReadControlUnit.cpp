// Reads a control unit: who it is, and what a tester knows of it.
#include "vehicle/ReadParts.h"

#include <algorithm>

namespace velkotx::host {

namespace {

bool readJson(const JsonPlace& place, VariantMatch& target) {
    ObjectReader in(place);
    in.required("dataIdentifier", target.dataIdentifier);
    in.optional("position", target.position);
    const auto bytes = in.require("bytes");
    if (bytes && readJson(*bytes, target.bytes) && target.bytes.empty())
        bytes->mistake("expected at least one byte");
    in.finish();
    return true;
}

// Adds what is common and has no namesake among the control unit's own.
template <typename Item>
void addCommon(const std::vector<Item>& common, std::vector<Item>& target) {
    for (const Item& item : common)
        if (std::none_of(target.begin(), target.end(), [&](const Item& own) { return own.name == item.name; }))
            target.push_back(item);
}

// A variant without matches fits whatever comes, so none behind it would ever be found.
void checkVariants(ObjectReader& in, const ControlUnitDescription& unit) {
    const auto variants = in.find("variants");
    if (!variants || !variants->is(JsonNode::Kind::List))
        return;
    const auto places = variants->items();
    for (std::size_t index = 0; index + 1 < unit.variants.size(); ++index)
        if (unit.variants[index].matches.empty())
            places[index].mistake("only the last variant can be without \"matches\"");
}

void checkRoutineMemories(ObjectReader& in, const ControlUnitDescription& unit) {
    const auto routines = in.find("routines");
    if (!routines || !routines->is(JsonNode::Kind::List))
        return;
    const auto places = routines->items();
    for (std::size_t index = 0; index < unit.routines.size(); ++index) {
        const RoutineDescription& routine = unit.routines[index];
        if (routine.memory.empty())
            continue;
        if (std::none_of(unit.memories.begin(), unit.memories.end(),
                         [&](const auto& memory) { return memory.name == routine.memory; }))
            places[index].mistake("no memory is named \"" + routine.memory + "\"");
    }
}

void checkOverlaps(ObjectReader& in, const ControlUnitDescription& unit) {
    const auto memories = in.find("memories");
    if (!memories || !memories->is(JsonNode::Kind::List))
        return;
    const auto places = memories->items();
    std::vector<std::size_t> order(unit.memories.size());
    for (std::size_t index = 0; index < order.size(); ++index)
        order[index] = index;
    std::sort(order.begin(), order.end(),
              [&](std::size_t one, std::size_t other) { return unit.memories[one].start < unit.memories[other].start; });
    for (std::size_t next = 1; next < order.size(); ++next) {
        const MemoryDescription& lower = unit.memories[order[next - 1]];
        if (unit.memories[order[next]].start - lower.start < lower.size)
            places[order[next]].mistake("overlaps the memory \"" + lower.name + "\"");
    }
}

void readBehaviour(ObjectReader& in, ControlUnitDescription& target) {
    in.optional("access", target.access);
    readUniqueList(in, "dataIdentifiers", target.dataIdentifiers, [](const auto& item) { return item.id; }, "id");
    readUniqueList(in, "routines", target.routines, [](const auto& item) { return item.id; }, "id");
    readUniqueList(in, "troubleCodes", target.troubleCodes, [](const auto& item) { return item.code; }, "code");
    in.optional("statusAvailability", target.statusAvailability);
    readUniqueList(in, "memories", target.memories, [](const auto& item) { return item.name; }, "name");
    in.optional("transfer", target.transfer);
    in.optional("maxResponseLength", target.maxResponseLength);
    if (target.maxResponseLength < 8)
        in.find("maxResponseLength")->mistake("expected at least 8 bytes");
    in.optional("responseTime", target.responseTime);
    in.optional("resetTime", target.resetTime);
    in.optional("faults", target.faults);
}

}  // namespace

bool readJson(const JsonPlace& place, VariantDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    if (const auto matches = in.find("matches"))
        for (const JsonPlace& match : matches->items())
            readJson(match, target.matches.emplace_back());
    readUniqueList(in, "services", target.services, [](const auto& item) { return item.name; }, "name");
    in.finish();
    return true;
}

bool readJson(const JsonPlace& place, ComParameterDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    readUniqueList(in, "parts", target.parts, [](const auto& item) { return item.name; }, "name");
    if (!in.has("parts"))
        in.required("default", target.defaultValue);
    in.finish();
    return true;
}

void readComParameters(ObjectReader& in, std::vector<ComParameterDescription>& target) {
    const auto list = in.find("comParameters");
    if (!list)
        return;
    for (const JsonPlace& item : list->items()) {
        const std::size_t mistakes = item.context().mistakes.size();
        readJson(item, target.emplace_back());
        if (item.context().mistakes.size() == mistakes)
            checkComParameter(item, target.back());
    }
    expectUnique(*list, target, [](const auto& parameter) { return parameter.name; }, "name");
}

void readControlUnit(const JsonPlace& place, const ControlUnitDescription& common, ControlUnitDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    in.required("requestAddress", target.requestAddress);
    in.required("responseAddress", target.responseAddress);
    readUniqueList(in, "groups", target.groups, [](const auto& group) { return group; }, "name");
    const std::size_t mistakes = place.context().mistakes.size();
    readSessions(in, target.sessions);
    readSecurities(in, target.securities);
    const bool subfunctionsKnown = place.context().mistakes.size() == mistakes;
    readBehaviour(in, target);
    if (subfunctionsKnown)
        checkAccess(in, target);
    readComParameters(in, target.comParameters);
    readUniqueList(in, "services", target.services, [](const auto& item) { return item.name; }, "name");
    readUniqueList(in, "variants", target.variants, [](const auto& item) { return item.name; }, "name");
    checkFunctional(in, target);
    addCommon(common.comParameters, target.comParameters);
    addCommon(common.services, target.services);
    checkVariants(in, target);
    checkRoutineMemories(in, target);
    checkOverlaps(in, target);
    in.finish();
}

}  // namespace velkotx::host
