// The comparison terms.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxQuantity.h>

#include <functional>

namespace otxns {

namespace {

template <class Comparison>
bool holds(const Term& first, const Term& second, OtxContext& context, Comparison comparison) {
    return evaluateTwo(first, second, context, [&](const COtxValue& left, const COtxValue& right) {
        return lookAt(left, context, [&]() -> bool { return comparison(left, right); });
    });
}

// Walks the adjacent pairs while the comparison answers `wanted`, and gives the last answer. Each pair is evaluated
// anew, so that a middle term is evaluated twice; this is meant. Fewer than two terms are neither equal nor unequal.
template <class Terms, class Comparison>
COtxValue overPairs(const Terms& terms, OtxContext& context, bool wanted, Comparison comparison) {
    if (terms.size() < 2) return COtxBool(false);
    bool answer = wanted;
    for (std::size_t i = 1; i < terms.size() && answer == wanted; ++i)
        answer = holds(terms[i - 1], terms[i], context, comparison);
    return COtxBool(answer);
}

bool isQuantity(const COtxValue& value) {
    return value.Type() == OTX::ValueType::Quantity;
}

// Of quantities of different dimensions none is more than the other.
template <class ComparisonTerm, class Comparison>
COtxValue compare(const ComparisonTerm& term, OtxContext& context, Comparison comparison) {
    return COtxBool(holds(term.left(), term.right(), context, [&](const COtxValue& left, const COtxValue& right) {
        if (isQuantity(left) || isQuantity(right)) [[unlikely]]
            COtxQuantity::RequireComparable(left, right);
        return comparison(left, right);
    }));
}

}  // namespace

template <>
COtxValue IsEqual_impl<IsEqual_base>::eval(OtxContext& context) const {
    return overPairs(term(), context, true, std::equal_to<>());
}

template <>
COtxValue IsNotEqual_impl<IsNotEqual_base>::eval(OtxContext& context) const {
    return overPairs(term(), context, false, std::not_equal_to<>());
}

template <>
COtxValue IsGreater_impl<IsGreater_base>::eval(OtxContext& context) const {
    return compare(*this, context, std::greater<>());
}

template <>
COtxValue IsGreaterOrEqual_impl<IsGreaterOrEqual_base>::eval(OtxContext& context) const {
    return compare(*this, context, std::greater_equal<>());
}

template <>
COtxValue IsLess_impl<IsLess_base>::eval(OtxContext& context) const {
    return compare(*this, context, std::less<>());
}

template <>
COtxValue IsLessOrEqual_impl<IsLessOrEqual_base>::eval(OtxContext& context) const {
    return compare(*this, context, std::less_equal<>());
}

}  // namespace otxns
