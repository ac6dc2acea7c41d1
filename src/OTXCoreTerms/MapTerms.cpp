// The terms that make and read maps.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/Typed.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>

#include <algorithm>
#include <map>
#include <vector>

namespace otxns {

namespace {

using Entries = std::map<COtxValue, COtxValue>;

// The types of keys and values play no part. The last item of a key wins.
template <class MapMaker>
COtxValue makeMap(const MapMaker& term, OtxContext& context) {
    Entries entries;
    if (term.items().present()) {
        for (const MapItem& item : term.items()->item()) {
            const COtxValue key = evaluate(item.key(), context);
            entries.insert_or_assign(key, evaluate(item.value(), context));
        }
    }
    return COtxMap(std::move(entries));
}

// In key order.
template <class Part>
COtxValue listOf(const Entries& entries, Part Entries::value_type::*part) {
    std::vector<COtxValue> values;
    values.reserve(entries.size());
    for (const auto& entry : entries) values.push_back(entry.*part);
    return COtxList(std::move(values));
}

}  // namespace

template <>
COtxValue MapCreate_impl<MapCreate_base>::eval(OtxContext& context) const {
    return makeMap(*this, context);
}

template <>
COtxValue MapLiteral_impl<MapLiteral_base>::eval(OtxContext& context) const {
    return makeMap(*this, context);
}

template <>
COtxValue MapGetSize_impl<MapGetSize_base>::eval(OtxContext& context) const {
    const COtxValue value = evaluateMap(map(), context, "MapGetSize");
    return COtxInt(static_cast<long long>(lookInto(context, [&] { return value.Map().size(); })));
}

// The keys and values are shared with the original.
template <>
COtxValue MapCopy_impl<MapCopy_base>::eval(OtxContext& context) const {
    const COtxValue value = evaluateMap(otherMap(), context, "MapCopy");
    return lookInto(context, [&] { return COtxMap(std::as_const(value.Map())); });
}

template <>
COtxValue MapGetKeyList_impl<MapGetKeyList_base>::eval(OtxContext& context) const {
    const COtxValue value = evaluateMap(map(), context, "MapGetKeyList");
    return lookInto(context, [&] { return listOf(value.Map(), &Entries::value_type::first); });
}

template <>
COtxValue MapGetValueList_impl<MapGetValueList_base>::eval(OtxContext& context) const {
    const COtxValue value = evaluateMap(map(), context, "MapGetValueList");
    return lookInto(context, [&] { return listOf(value.Map(), &Entries::value_type::second); });
}

// For a value that is no map, this term and the next leave the refusal to the value, after both terms are evaluated.
template <>
COtxValue MapContainsKey_impl<MapContainsKey_base>::eval(OtxContext& context) const {
    return evaluateTwo(map(), key(), context, [&](const COtxValue& values, const COtxValue& wanted) {
        const Entries& entries = values.Map();
        return COtxBool(lookInto(context, [&] { return entries.count(wanted) != 0; }));
    });
}

template <>
COtxValue MapContainsValue_impl<MapContainsValue_base>::eval(OtxContext& context) const {
    return evaluateTwo(map(), value(), context, [&](const COtxValue& values, const COtxValue& wanted) {
        const Entries& entries = values.Map();
        const auto isWanted = [&](const auto& entry) { return entry.second == wanted; };
        return COtxBool(lookInto(context, [&] { return std::any_of(entries.begin(), entries.end(), isWanted); }));
    });
}

}  // namespace otxns
