// The arithmetic terms. The numeric rules are those of the leftmost operand's value.
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/IntegerTerms.h>
#include <otx/value/COtxInt.h>
#include <velkotx/Exceptions.h>

namespace otxns {

namespace {

template <class Operation>
COtxValue calculate(const Term& first, const Term& second, OtxContext& context, Operation operation) {
    long long number = 0;
    if (calculateIntegers(first, second, context, operation, number)) return COtxInt(number);
    return evaluateTwo(first, second, context, operation);
}

// Left to right. One operand alone is the result, whatever its type.
template <class Numerals, class Operation>
COtxValue fold(const Numerals& numerals, OtxContext& context, Operation operation) {
    if (numerals.empty()) throw velkotx::OTXRuntimeException("InternalError", "Not enough terms");
    if (numerals.size() == 2) [[likely]]
        return calculate(numerals[0], numerals[1], context, operation);
    COtxValue result = evaluate(numerals[0], context);
    for (std::size_t i = 1; i < numerals.size(); ++i) result = operation(result, evaluate(numerals[i], context));
    return result;
}

}  // namespace

template <>
COtxValue Add_impl<Add_base>::eval(OtxContext& context) const {
    return fold(numeral(), context, Sum());
}

template <>
COtxValue Multiply_impl<Multiply_base>::eval(OtxContext& context) const {
    return fold(numeral(), context, Product());
}

template <>
COtxValue Subtract_impl<Subtract_base>::eval(OtxContext& context) const {
    return calculate(numeral(), subtrahend(), context, Difference());
}

template <>
COtxValue Divide_impl<Divide_base>::eval(OtxContext& context) const {
    return calculate(numeral(), divisor(), context, Quotient());
}

template <>
COtxValue Modulo_impl<Modulo_base>::eval(OtxContext& context) const {
    return calculate(numeral(), divisor(), context, Remainder());
}

template <>
COtxValue AbsoluteValue_impl<AbsoluteValue_base>::eval(OtxContext& context) const {
    return evaluate(numeral(), context).Abs();
}

}  // namespace otxns
