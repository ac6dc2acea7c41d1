// The logic terms.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <otx/value/COtxBool.h>

namespace otxns {

namespace {

// Stops at the first term that isn't `neutral`. Fewer than two terms give false and evaluate nothing; this is meant.
template <class Terms>
COtxValue shortCircuit(const Terms& terms, OtxContext& context, bool neutral) {
    if (terms.size() < 2) return COtxBool(false);
    bool last = neutral;
    for (std::size_t i = 0; i < terms.size() && last == neutral; ++i) last = evaluate(terms[i], context).Bool();
    return COtxBool(last);
}

}  // namespace

template <>
COtxValue LogicAnd_impl<LogicAnd_base>::eval(OtxContext& context) const {
    return shortCircuit(term(), context, true);
}

template <>
COtxValue LogicOr_impl<LogicOr_base>::eval(OtxContext& context) const {
    return shortCircuit(term(), context, false);
}

// Of exactly two terms, by inequality of the values; any other number gives false and evaluates nothing. This is meant.
template <>
COtxValue LogicXor_impl<LogicXor_base>::eval(OtxContext& context) const {
    if (term().size() != 2) return COtxBool(false);
    return COtxBool(evaluateTwo(term()[0], term()[1], context, [&](const COtxValue& left, const COtxValue& right) {
        return lookAt(left, context, [&] { return left != right; });
    }));
}

template <>
COtxValue LogicNot_impl<LogicNot_base>::eval(OtxContext& context) const {
    return COtxBool(!evaluate(term(), context).Bool());
}

}  // namespace otxns
