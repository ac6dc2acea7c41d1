// Terms and actions that are one call of an interface: evaluate the operands, take the interface out of the first, call.
#pragma once

#include <OTXCoreTerms/Evaluate.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>

#include <cstdint>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

// One line of a table of such classes, in the namespace of their module. The second argument is what eval or exec gives, in
// terms of the class's members and `context`.
#define OTX_TERM(Name, ...)                                                                   \
    template <>                                                                               \
    COtxValue Name##_impl<Name##_base>::eval([[maybe_unused]] otxns::OtxContext& context) const { \
        return __VA_ARGS__;                                                                   \
    }
#define OTX_ACTION(Name, ...)                                                               \
    template <>                                                                             \
    void Name##_impl<Name##_base>::exec([[maybe_unused]] otxns::OtxContext& context) const { \
        __VA_ARGS__;                                                                        \
    }

namespace otxns {

// An operand that the interface takes as a plain number; -1 stands for one that may be left out and is.
struct IntegerOperand {
    const Term* term;
};
inline IntegerOperand integer(const Term& term) { return {&term}; }
template <class Optional>
IntegerOperand optionalInteger(const Optional& operand) {
    return {operand.present() ? &operand.get() : nullptr};
}

inline COtxValue operandValue(const Term& term, OtxContext& context) { return settled(evaluate(term, context), context); }
inline std::int64_t operandValue(const IntegerOperand& operand, OtxContext& context) {
    return operand.term != nullptr ? evaluate(*operand.term, context).Int() : -1;
}
// A variable is read.
inline COtxValue operandValue(const Variable& variable, OtxContext& context) { return variable.read(context); }
// What stands in the document itself, or was made before.
template <class Constant>
    requires(!std::is_base_of_v<Term, Constant> && !std::is_base_of_v<Variable, Constant>)
const Constant& operandValue(const Constant& constant, OtxContext&) {
    return constant;
}

// What an interface answers, as a value.
inline COtxValue answered(COtxValue value) { return value; }
inline COtxValue answered(bool value) { return COtxBool(value); }
inline COtxValue answered(std::int64_t value) { return COtxInt(value); }
inline COtxValue answered(double value) { return COtxFloat(value); }

// For a term: the interface is taken before the other operands are evaluated, which happens from left to right.
template <class Subject, class Accessor, class Operation, class... Operands>
COtxValue ask(OtxContext& context, const Subject& subject, Accessor accessor, Operation operation,
              const Operands&... operands) {
    const COtxValue value = operandValue(subject, context);
    auto& interface = (value.*accessor)();
    return std::apply(
        [&](const auto&... arguments) { return answered(std::invoke(operation, interface, arguments...)); },
        std::tuple{operandValue(operands, context)...});
}

// For an action: all operands are evaluated from left to right before the interface is taken.
template <class Subject, class Accessor, class Operation, class... Operands>
void tell(OtxContext& context, const Subject& subject, Accessor accessor, Operation operation,
          const Operands&... operands) {
    const COtxValue value = operandValue(subject, context);
    std::apply([&](const auto&... arguments) { std::invoke(operation, (value.*accessor)(), arguments...); },
               std::tuple{operandValue(operands, context)...});
}

}  // namespace otxns
