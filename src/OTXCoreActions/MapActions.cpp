// The actions that change a map through the live handle that its variable answers.
#include <OTXCoreTerms/Evaluate.h>
#include <Trace.h>
#include <otx/value/COtxException.h>
#include <otx/value/IString.h>

#include <map>
#include <string>

namespace otxns {

// The later of two equal keys wins; the key object that is in the map stays.
template <>
void MapPutItems_impl<MapPutItems_base>::exec(OtxContext& context) const {
    const COtxValue target = map().read(context);
    for (const MapItem& term : item()) {
        const COtxValue key = evaluate(term.key(), context);
        const COtxValue value = evaluate(term.value(), context);
        OTX_TRACE(4, "key: " << key << " value: " << value);
        target.Map().insert_or_assign(key, value);
    }
}

// Items before one that fails stay removed.
template <>
void MapRemoveItems_impl<MapRemoveItems_base>::exec(OtxContext& context) const {
    const COtxValue target = map().read(context);
    for (const Term& term : key()) {
        const COtxValue removed = evaluate(term, context);
        OTX_TRACE(4, "key: " << removed);
        auto& entries = target.Map();
        const auto found = entries.find(removed);
        if (found == entries.end()) {
            const std::string text = removed.ToString().String();
            throw COtxException(OTX::Exceptions_e::OutOfBoundsException,
                                "Map " + map().name() + " does not contain key " + text);
        }
        entries.erase(found);
    }
}

template <>
void MapUnion_impl<MapUnion_base>::exec(OtxContext& context) const {
    const COtxValue target = map().read(context);
    for (const MapTerm& term : otherMap()) {
        const COtxValue other = evaluate(term, context);
        auto& entries = target.Map();
        // With itself a map has nothing to gain.
        if (&other.Map() == &entries) continue;
        for (const auto& [key, value] : other.Map()) entries.insert_or_assign(key, value);
    }
}

template <>
void MapClear_impl<MapClear_base>::exec(OtxContext& context) const {
    map().read(context).Map().clear();
}

}  // namespace otxns
