// Evaluating terms that must give a container of one type.
#pragma once

#include <OTXCoreTerms/Evaluate.h>
#include <velkotx/Exceptions.h>

namespace otxns {

// Throws OTXRuntimeException with the term's name and the failure for a value of another type.
inline COtxValue evaluateTyped(const Term& term, OtxContext& context, OTX::ValueType type, const char* termName,
                               const char* failure) {
    COtxValue value = evaluate(term, context);
    if (value.Type() != type) throw velkotx::OTXRuntimeException(termName, failure);
    return value;
}

inline COtxValue evaluateList(const Term& term, OtxContext& context, const char* termName) {
    return evaluateTyped(term, context, OTX::ValueType::List, termName, "Not a list");
}

inline COtxValue evaluateMap(const Term& term, OtxContext& context, const char* termName) {
    return evaluateTyped(term, context, OTX::ValueType::Map, termName, "Not a map");
}

}  // namespace otxns
