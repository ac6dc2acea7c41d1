// The ForEachLoop: over the indexes of a list or the keys of a map.
#include <OTXCoreActions/LoopBody.h>
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <velkotx/Exceptions.h>

#include <map>
#include <optional>
#include <vector>

namespace otxns {

namespace {

// The size is read anew each time: a body that appends extends the loop. The locator holds the index, not the item.
FlowExit overList(const std::vector<COtxValue>& items, const ForEachLoop& loop, OtxContext& context, const Flow& body,
                  const OtxName& loopName) {
    const auto reaches = [&](std::size_t i) { return lookInto(context, [&] { return i < items.size(); }); };
    for (std::size_t i = 0; reaches(i); ++i) {
        assignInteger(loop.locator(), context, static_cast<long long>(i));
        const Iteration iteration = iterate(body, context, loopName);
        if (!iteration.goesOn) return iteration.exit;
    }
    return {};
}

// Finds its way by the last key, so that a body which changes the map does no harm.
FlowExit overMap(const std::map<COtxValue, COtxValue>& entries, const ForEachLoop& loop, OtxContext& context,
                 const Flow& body, const OtxName& loopName) {
    using Key = std::optional<COtxValue>;
    const auto keyAt = [&](auto entry) { return entry != entries.end() ? Key(entry->first) : Key(); };
    Key key = lookInto(context, [&] { return keyAt(entries.begin()); });
    while (key) {
        assign(loop.locator(), context, *key);
        const Iteration iteration = iterate(body, context, loopName);
        if (!iteration.goesOn) return iteration.exit;
        key = lookInto(context, [&] { return keyAt(entries.upper_bound(*key)); });
    }
    return {};
}

}  // namespace

FlowExit run(const ForEachLoop& loop, OtxContext& context, const Flow& body, const OtxName& loopName) {
    // Keeps the container alive, whatever the body assigns.
    const COtxValue values = evaluate(loop.collection(), context);
    switch (values.Type()) {
        case OTX::ValueType::List:
            return overList(values.List(), loop, context, body, loopName);
        case OTX::ValueType::Map:
            return overMap(values.Map(), loop, context, body, loopName);
        default:
            throw velkotx::OTXRuntimeException("forEachLoop", "Not map or list");
    }
}

template <>
void ForEachLoop_impl<ForEachLoop_base>::exec(OtxContext& context, const Flow& body, const OtxName& loopName) const {
    run(*this, context, body, loopName).raise();
}

}  // namespace otxns
