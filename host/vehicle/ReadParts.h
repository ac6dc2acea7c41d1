// The parts of a vehicle file, each read into its structure.
#pragma once

#include <vehicle/JsonReader.h>
#include <vehicle/VehicleDescription.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace velkotx::host {

bool readJson(const JsonPlace& place, Curve& target);
bool readJson(const JsonPlace& place, DataSource& target);
bool readJson(const JsonPlace& place, AccessCondition& target);
bool readJson(const JsonPlace& place, ParameterDescription& target);
bool readJson(const JsonPlace& place, MessageDescription& target);
bool readJson(const JsonPlace& place, ServiceDescription& target);
bool readJson(const JsonPlace& place, VariantDescription& target);
bool readJson(const JsonPlace& place, ComParameterDescription& target);
bool readJson(const JsonPlace& place, ServiceAccess& target);
bool readJson(const JsonPlace& place, DataIdentifierDescription& target);
bool readJson(const JsonPlace& place, RoutineDescription& target);
bool readJson(const JsonPlace& place, TroubleCodeDescription& target);
bool readJson(const JsonPlace& place, MemoryDescription& target);
bool readJson(const JsonPlace& place, TransferDescription& target);
bool readJson(const JsonPlace& place, FaultDescription& target);
bool readJson(const JsonPlace& place, FlashSessionDescription& target);
bool readJson(const JsonPlace& place, ComInterfaceDescription& target);
bool readJson(const JsonPlace& place, FunctionalGroupDescription& target);

// Sessions and security levels, which the other parts call by name: they are read first, and noted in the context.
void readSessions(ObjectReader& in, std::vector<SessionDescription>& target);
void readSecurities(ObjectReader& in, std::vector<SecurityDescription>& target);

// A list of names of sessions.
void readSessionNames(const JsonPlace& place, std::vector<std::uint8_t>& target);

// "sessions" and "security".
void readCondition(ObjectReader& in, AccessCondition& target);

// "factor" and "offset".
void readScaling(ObjectReader& in, Scaling& target);

// One data source, or a list of them.
void readSources(ObjectReader& in, const char* key, std::vector<DataSource>& target);

// Notes parameters that can't lie as they are described: over the prefix, behind an end that isn't known, counted by what
// isn't there.
void checkLayout(const JsonPlace& parameters, const MessageDescription& message);

// Notes the first parameter of a request that writes bits of another, as far as their places are known. In a response that
// is no mistake: bits may be seen in several ways. Only for a request without other mistakes.
void checkOverlap(const JsonPlace& request, const MessageDescription& message);

// Notes rules of access that nothing can meet: for a subfunction that the service doesn't have, or behind another one for the
// same. Sessions and security levels are subfunctions; without mistakes in them only.
void checkAccess(ObjectReader& unit, const ControlUnitDescription& description);

// Notes functional services, its own and those of its variants, of a control unit that is in no group: nobody would answer.
void checkFunctional(ObjectReader& unit, const ControlUnitDescription& description);

// Notes limits between which no value of the parameter's coding lies.
void checkLimits(const JsonPlace& place, const ParameterDescription& parameter);

// Notes a default or constant that can't be coded: the same value would be refused when it is sent.
void checkValue(const JsonPlace& place, const PlainValue& value, const ParameterDescription& parameter);

// Notes a default that a ComParameter with a meaning of its own can't have.
void checkComParameter(const JsonPlace& place, const ComParameterDescription& parameter);

// The bytes of a file: {"file": "data.bin", "offset": 0, "size": 1024}, or of a text of hexadecimal digits.
bool readData(const JsonPlace& place, Bytes& target);

void readComParameters(ObjectReader& in, std::vector<ComParameterDescription>& target);

// A control unit; what it lacks is taken from the vehicle's own services and ComParameters.
void readControlUnit(const JsonPlace& place, const ControlUnitDescription& common, ControlUnitDescription& target);

// A mistake for each item whose key another item before it has.
template <typename Item, typename Key>
void expectUnique(const JsonPlace& list, const std::vector<Item>& items, Key key, const char* what) {
    std::set<std::decay_t<decltype(key(items.front()))>> keys;
    for (std::size_t index = 0; index < items.size(); ++index)
        if (!keys.insert(key(items[index])).second)
            list.inside(list.node().items[index], std::to_string(index))
                .mistake(std::string("another one before it has the same ") + what);
}

// A list whose items differ in the key.
template <typename Item, typename Key>
void readUniqueList(ObjectReader& in, const char* name, std::vector<Item>& target, Key key, const char* what) {
    const auto list = in.find(name);
    if (list && readJson(*list, target))
        expectUnique(*list, target, key, what);
}

}  // namespace velkotx::host
