// The actions that change a map through the live handle that its variable answers.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <Trace.h>
#include <otx/value/COtxException.h>
#include <otx/value/IString.h>

#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace otxns {

namespace {

using Entries = std::map<COtxValue, COtxValue>;

// The later of two equal keys wins; the key object that is in the map stays. A replaced value dies after the lock is
// released.
void put(Entries& entries, const COtxValue& key, COtxValue value, OtxContext& context) {
    const std::lock_guard content(context.ContentLock());
    if (const auto [entry, isNew] = entries.try_emplace(key, value); !isNew) std::swap(entry->second, value);
}

}  // namespace

template <>
void MapPutItems_impl<MapPutItems_base>::exec(OtxContext& context) const {
    const COtxValue target = map().read(context);
    for (const MapItem& term : item()) {
        const COtxValue key = evaluate(term.key(), context);
        COtxValue value = evaluate(term.value(), context);
        OTX_TRACE(4, "key: " << Shown(key, context) << " value: " << Shown(value, context));
        put(target.Map(), key, std::move(value), context);
    }
}

// Items before one that fails stay removed.
template <>
void MapRemoveItems_impl<MapRemoveItems_base>::exec(OtxContext& context) const {
    const COtxValue target = map().read(context);
    for (const Term& term : key()) {
        const COtxValue removed = evaluate(term, context);
        OTX_TRACE(4, "key: " << Shown(removed, context));
        Entries& entries = target.Map();
        const Entries::node_type dropped = lookInto(context, [&] { return entries.extract(removed); });
        if (dropped) continue;
        throw COtxException(OTX::Exceptions_e::OutOfBoundsException,
                            "Map " + map().name() + " does not contain key " + textOf(removed, context));
    }
}

template <>
void MapUnion_impl<MapUnion_base>::exec(OtxContext& context) const {
    const COtxValue target = map().read(context);
    for (const MapTerm& term : otherMap()) {
        const COtxValue other = evaluate(term, context);
        Entries& entries = target.Map();
        // With itself a map has nothing to gain.
        if (&other.Map() == &entries) continue;
        const Entries added = lookInto(context, [&] { return Entries(other.Map()); });
        for (const auto& [key, value] : added) put(entries, key, value, context);
    }
}

template <>
void MapClear_impl<MapClear_base>::exec(OtxContext& context) const {
    const COtxValue target = map().read(context);
    Entries& entries = target.Map();
    Entries dropped;
    const std::lock_guard content(context.ContentLock());
    entries.swap(dropped);
}

}  // namespace otxns
