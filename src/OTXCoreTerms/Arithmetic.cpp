// The arithmetic terms. The numeric rules are those of the leftmost operand's value.
#include <OTXCoreTerms/Evaluate.h>
#include <velkotx/Exceptions.h>

#include <functional>

namespace otxns {

namespace {

// Left to right. One operand alone is the result, whatever its type.
template <class Numerals, class Operation>
COtxValue fold(const Numerals& numerals, OtxContext& context, Operation operation) {
    if (numerals.empty()) throw velkotx::OTXRuntimeException("InternalError", "Not enough terms");
    if (numerals.size() == 2) [[likely]]
        return evaluateTwo(numerals[0], numerals[1], context, operation);
    COtxValue result = evaluate(numerals[0], context);
    for (std::size_t i = 1; i < numerals.size(); ++i) result = operation(result, evaluate(numerals[i], context));
    return result;
}

}  // namespace

template <>
COtxValue Add_impl<Add_base>::eval(OtxContext& context) const {
    return fold(numeral(), context, std::plus<>());
}

template <>
COtxValue Multiply_impl<Multiply_base>::eval(OtxContext& context) const {
    return fold(numeral(), context, std::multiplies<>());
}

template <>
COtxValue Subtract_impl<Subtract_base>::eval(OtxContext& context) const {
    return evaluateTwo(numeral(), subtrahend(), context, std::minus<>());
}

template <>
COtxValue Divide_impl<Divide_base>::eval(OtxContext& context) const {
    return evaluateTwo(numeral(), divisor(), context, std::divides<>());
}

template <>
COtxValue Modulo_impl<Modulo_base>::eval(OtxContext& context) const {
    return evaluateTwo(numeral(), divisor(), context, std::modulus<>());
}

template <>
COtxValue AbsoluteValue_impl<AbsoluteValue_base>::eval(OtxContext& context) const {
    return evaluate(numeral(), context).Abs();
}

}  // namespace otxns
