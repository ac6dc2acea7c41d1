// The one hub through which terms are evaluated.
#pragma once

#include <OTXContext/OtxContext.h>
#include <OTXCoreTerms/Content.h>
#include <StackGuard.h>
#include <otx/value/COtxValue.h>

#include <utility>

namespace otxns {

// Throws OTXRuntimeException, "Stack exhausted", and what the term raises.
inline COtxValue evaluate(const Term& term, OtxContext& context) {
    requireStack();
    return term.eval(context);
}

// An operand that may be left out: its value, else the default.
template <class Optional>
COtxValue evaluateOr(const Optional& term, COtxValue fallback, OtxContext& context) {
    return term.present() ? evaluate(term.get(), context) : std::move(fallback);
}

// The number that the term's value converts to.
inline long long evaluateInteger(const Term& term, OtxContext& context) {
    const COtxValue value = evaluate(term, context);
    return value.Type() == OTX::ValueType::Integer ? value.Int() : converted(value, context, &COtxValue::ToInteger).Int();
}

// The same for an index, count or position that is used as a 32-bit number: cut to its low 32 bits.
inline int evaluateInt32(const Term& term, OtxContext& context) {
    return static_cast<int>(evaluateInteger(term, context));
}

// The operation on two terms, the first evaluated first.
template <class Operation>
auto evaluateTwo(const Term& first, const Term& second, OtxContext& context, Operation operation) {
    const COtxValue left = evaluate(first, context);
    const COtxValue right = evaluate(second, context);
    return operation(left, right);
}

}  // namespace otxns
