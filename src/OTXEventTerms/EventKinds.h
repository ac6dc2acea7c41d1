// For the terms that ask for one kind of event.
#pragma once

#include <OTXCoreTerms/Evaluate.h>
#include <otx/event/IEvent.h>
#include <otx/value/COtxBool.h>

namespace otxns {

inline bool isOfKind(const OTX::IEvent& event, OTX::EventKind kind) {
    return event.Kind() == static_cast<int>(kind);
}

inline COtxValue isOfKind(const Term& event, OTX::EventKind kind, OtxContext& context) {
    const COtxValue value = evaluate(event, context);
    return COtxBool(isOfKind(value.Event(), kind));
}

}  // namespace otxns
