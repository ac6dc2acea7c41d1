// Reads how a control unit behaves: data identifiers, routines, trouble codes.
#include "vehicle/ReadParts.h"

#include "vehicle/DataSource.h"

namespace velkotx::host {

namespace {

// true, false, or the condition under which.
void readRight(ObjectReader& in, const char* key, bool& allowed, AccessCondition& condition) {
    const auto place = in.find(key);
    if (!place)
        return;
    if (place->is(JsonNode::Kind::Boolean)) {
        readJson(*place, allowed);
        return;
    }
    if (!place->is(JsonNode::Kind::Object)) {
        place->mistake("expected true, false, or an object with \"sessions\" or \"security\"");
        return;
    }
    allowed = true;
    readJson(*place, condition);
}

void readSnapshot(const JsonPlace& place, SnapshotDescription& target) {
    ObjectReader in(place);
    in.required("record", target.record);
    if (const auto data = in.require("data"))
        for (const JsonPlace& item : data->items()) {
            auto& [identifier, bytes] = target.data.emplace_back();
            ObjectReader entry(item);
            entry.required("dataIdentifier", identifier);
            entry.required("bytes", bytes);
            entry.finish();
        }
    if (target.data.size() > 0xFF)
        place.mistake("a snapshot has at most 255 data identifiers");
    in.finish();
}

void readExtendedData(const JsonPlace& place, ExtendedDataDescription& target) {
    ObjectReader in(place);
    in.required("record", target.record);
    in.required("bytes", target.data);
    in.finish();
}

template <typename Record>
void readRecords(ObjectReader& in, const char* key, std::vector<Record>& target,
                 void (*read)(const JsonPlace&, Record&)) {
    const auto list = in.find(key);
    if (!list)
        return;
    for (const JsonPlace& item : list->items()) {
        read(item, target.emplace_back());
        if (target.back().record == 0 || target.back().record == 0xFF)
            item.mistake("the number of a record lies between 1 and 0xFE");
    }
    expectUnique(*list, target, [](const Record& record) { return record.record; }, "record");
}

}  // namespace

bool readJson(const JsonPlace& place, DataIdentifierDescription& target) {
    ObjectReader in(place);
    in.optional("name", target.name);
    in.required("id", target.id);
    const std::size_t mistakes = place.context().mistakes.size();
    in.require("data");
    readSources(in, "data", target.data);
    const bool told = place.context().mistakes.size() > mistakes;
    readRight(in, "read", target.readable, target.read);
    readRight(in, "write", target.writable, target.write);
    readRight(in, "control", target.controllable, target.control);
    if (!told && place.is(JsonNode::Kind::Object) && sourceLength(target.data) == 0)
        place.mistake("a data identifier has at least one byte");
    in.finish();
    return true;
}

bool readJson(const JsonPlace& place, RoutineDescription& target) {
    ObjectReader in(place);
    in.optional("name", target.name);
    in.required("id", target.id);
    readCondition(in, target.condition);
    in.optional("optionLength", target.optionLength);
    readSources(in, "started", target.started);
    readSources(in, "stopped", target.stopped);
    readSources(in, "running", target.running);
    readSources(in, "results", target.results);
    in.optional("canStop", target.canStop);
    in.optional("hasResults", target.hasResults);
    in.optional("duration", target.duration);
    in.optional("processing", target.processing);
    if (const auto effect = in.find("effect"))
        readWord<RoutineEffect>(*effect,
                                {{"none", RoutineEffect::None},
                                 {"eraseMemory", RoutineEffect::EraseMemory},
                                 {"checkCrc32", RoutineEffect::CheckCrc32}},
                                target.effect);
    in.optional("memory", target.memory);
    if (target.effect == RoutineEffect::EraseMemory && target.memory.empty())
        place.mistake("which \"memory\" does it erase?");
    if (target.effect == RoutineEffect::CheckCrc32 && target.optionLength && *target.optionLength < 4)
        in.find("optionLength")->mistake("the CRC-32 in the option record has 4 bytes");
    in.finish();
    return true;
}

bool readJson(const JsonPlace& place, TroubleCodeDescription& target) {
    ObjectReader in(place);
    in.optional("name", target.name);
    in.required("code", target.code);
    in.required("status", target.status);
    in.optional("statusAfterClear", target.statusAfterClear);
    if (target.code > 0xFFFFFE)
        place.mistake("a trouble code has three bytes, and 0xFFFFFF stands for all of them");
    readRecords(in, "snapshots", target.snapshots, readSnapshot);
    readRecords(in, "extendedData", target.extendedData, readExtendedData);
    in.finish();
    return true;
}

}  // namespace velkotx::host
