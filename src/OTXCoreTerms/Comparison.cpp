// The comparison terms.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/IntegerTerms.h>
#include <OTXCoreTerms/Interruptible.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxQuantity.h>

#include <functional>
#include <type_traits>

namespace otxns {

namespace {

template <class Comparison>
bool holds(const Term& first, const Term& second, OtxContext& context, Comparison comparison) {
    long long number = 0;
    long long other = 0;
    if (readIntegers(first, second, context, number, other)) return comparison(number, other);
    return evaluateTwo(first, second, context, [&](const COtxValue& left, const COtxValue& right) {
        return lookAt(left, context, [&]() -> bool { return comparison(left, right); });
    });
}

// Walks the adjacent pairs while the comparison answers `wanted`, and gives the last answer. Each pair is evaluated
// anew, so that a middle term is evaluated twice; this is meant. Such terms within each other double the work with each
// level, so a cancelled flow leaves them. Fewer than two terms are neither equal nor unequal.
template <class Terms, class Comparison>
bool overPairs(const Terms& terms, OtxContext& context, bool wanted, Comparison comparison) {
    if (terms.size() < 2) return false;
    bool answer = wanted;
    for (std::size_t i = 1; i < terms.size() && answer == wanted; ++i) {
        if (i > 1) leaveIfCancelled(context.OwnFlow());
        answer = holds(terms[i - 1], terms[i], context, comparison);
    }
    return answer;
}

bool isQuantity(const COtxValue& value) {
    return value.Type() == OTX::ValueType::Quantity;
}

// Of quantities of different dimensions none is more than the other.
template <class ComparisonTerm, class Comparison>
bool compare(const ComparisonTerm& term, OtxContext& context, Comparison comparison) {
    return holds(term.left(), term.right(), context, [&]<class Operand>(const Operand& left, const Operand& right) {
        if constexpr (std::is_same_v<Operand, COtxValue>) {
            if (isQuantity(left) || isQuantity(right)) [[unlikely]]
                COtxQuantity::RequireComparable(left, right);
        }
        return comparison(left, right);
    });
}

bool truth(const IsEqual& term, OtxContext& context) {
    return overPairs(term.term(), context, true, std::equal_to<>());
}

bool truth(const IsNotEqual& term, OtxContext& context) {
    return overPairs(term.term(), context, false, std::not_equal_to<>());
}

bool truth(const IsGreater& term, OtxContext& context) {
    return compare(term, context, std::greater<>());
}

bool truth(const IsGreaterOrEqual& term, OtxContext& context) {
    return compare(term, context, std::greater_equal<>());
}

bool truth(const IsLess& term, OtxContext& context) {
    return compare(term, context, std::less<>());
}

bool truth(const IsLessOrEqual& term, OtxContext& context) {
    return compare(term, context, std::less_equal<>());
}

}  // namespace

bool evaluateTruth(const Term& term, OtxContext& context) {
    requireStack();
    if (const auto* const comparison = exactly<IsLess>(term)) return truth(*comparison, context);
    if (const auto* const comparison = exactly<IsEqual>(term)) return truth(*comparison, context);
    if (const auto* const comparison = exactly<IsGreater>(term)) return truth(*comparison, context);
    if (const auto* const comparison = exactly<IsLessOrEqual>(term)) return truth(*comparison, context);
    if (const auto* const comparison = exactly<IsGreaterOrEqual>(term)) return truth(*comparison, context);
    if (const auto* const comparison = exactly<IsNotEqual>(term)) return truth(*comparison, context);
    return term.eval(context).Bool();
}

template <>
COtxValue IsEqual_impl<IsEqual_base>::eval(OtxContext& context) const {
    return COtxBool(truth(*this, context));
}

template <>
COtxValue IsNotEqual_impl<IsNotEqual_base>::eval(OtxContext& context) const {
    return COtxBool(truth(*this, context));
}

template <>
COtxValue IsGreater_impl<IsGreater_base>::eval(OtxContext& context) const {
    return COtxBool(truth(*this, context));
}

template <>
COtxValue IsGreaterOrEqual_impl<IsGreaterOrEqual_base>::eval(OtxContext& context) const {
    return COtxBool(truth(*this, context));
}

template <>
COtxValue IsLess_impl<IsLess_base>::eval(OtxContext& context) const {
    return COtxBool(truth(*this, context));
}

template <>
COtxValue IsLessOrEqual_impl<IsLessOrEqual_base>::eval(OtxContext& context) const {
    return COtxBool(truth(*this, context));
}

}  // namespace otxns
