// The Map value.
#include <otx/value/COtxMap.h>

#include <otx/value/Json.h>

#include <algorithm>
#include <ostream>

#include "ContainerBehaviour.h"
#include "CopyMap.h"
#include "Descent.h"
#include "JsonWriter.h"
#include "Make.h"
#include "TextValues.h"

namespace otx {

namespace {

const std::map<COtxValue, COtxValue>& entriesBehind(const COtxValueBehaviour& behaviour) {
    return static_cast<const MapBehaviour&>(behaviour).entries;
}

COtxValue makeMap(std::map<COtxValue, COtxValue> entries) { return makePlain<MapBehaviour>(std::move(entries)); }

COtxValue makeMap(const std::map<const std::string, COtxValue>& entries) {
    std::map<COtxValue, COtxValue> values;
    // The order of the keys is the same.
    for (const auto& [key, value] : entries) values.emplace_hint(values.end(), makeText(key), value);
    return makeMap(std::move(values));
}

}  // namespace

COtxValue MapBehaviour::ToString() { return makeText(plainJsonText(*this)); }

void MapBehaviour::ToStream(std::ostream& out, int) const { streamJson(out, *this); }

COtxValue MapBehaviour::ToJSONObject(Value2IdMap& conversion) {
    return jsonOfMap(entries, conversion.OtxForm());
}

COtxValue MapBehaviour::Copy(const COtxValue& self, OTX::CopyMap& copies) const {
    COtxValue copy = makeMap(std::map<COtxValue, COtxValue>());
    copies.add(self, copy);
    std::map<COtxValue, COtxValue>& copied = copy.Map();
    for (const auto& [key, value] : entries)
        copied.emplace_hint(copied.end(), copies.copyOf(key), copies.copyOf(value));
    return copy;
}

bool MapBehaviour::equalTo(const COtxValueBehaviour& right) const {
    if (this == &right) return true;
    const Descent descent;
    return entries == entriesBehind(right);
}

std::weak_ordering MapBehaviour::compareWith(const COtxValueBehaviour& right) const {
    if (this == &right) return std::weak_ordering::equivalent;
    const Descent descent;
    const std::map<COtxValue, COtxValue>& others = entriesBehind(right);
    return std::lexicographical_compare_three_way(
        entries.begin(), entries.end(), others.begin(), others.end(), [](const auto& mine, const auto& other) {
            const auto order = compareValues(mine.first, other.first);
            return order != 0 ? order : compareValues(mine.second, other.second);
        });
}

}  // namespace otx

COtxMap::COtxMap() : COtxValue(otx::makeMap(std::map<COtxValue, COtxValue>())) {}
COtxMap::COtxMap(const COtxMap& other) : COtxValue(otx::makeMap(other.Map())) {}
COtxMap::COtxMap(const std::map<COtxValue, COtxValue>& entries) : COtxValue(otx::makeMap(entries)) {}
COtxMap::COtxMap(std::map<COtxValue, COtxValue>&& entries) : COtxValue(otx::makeMap(std::move(entries))) {}
COtxMap::COtxMap(const std::map<const std::string, COtxValue>& entries) : COtxValue(otx::makeMap(entries)) {}

COtxMap& COtxMap::operator=(const COtxMap& other) { return *this = COtxMap(other); }
