// Terms of integers, calculated without making a value of each number.
#pragma once

#include <Exactly.h>
#include <OTXContext/OtxContext.h>

namespace otxns {

// The calculations of two integers; false where the value library has to look closer. Each also gives what it is on values.
struct Sum {
    bool operator()(long long left, long long right, long long& result) const noexcept {
        return !__builtin_add_overflow(left, right, &result);
    }
    COtxValue operator()(const COtxValue& left, const COtxValue& right) const { return left + right; }
};

struct Difference {
    bool operator()(long long left, long long right, long long& result) const noexcept {
        return !__builtin_sub_overflow(left, right, &result);
    }
    COtxValue operator()(const COtxValue& left, const COtxValue& right) const { return left - right; }
};

struct Product {
    bool operator()(long long left, long long right, long long& result) const noexcept {
        return !__builtin_mul_overflow(left, right, &result);
    }
    COtxValue operator()(const COtxValue& left, const COtxValue& right) const { return left * right; }
};

struct Quotient {
    bool operator()(long long left, long long right, long long& result) const noexcept {
        if (right <= 0) return false;
        result = left / right;
        return true;
    }
    COtxValue operator()(const COtxValue& left, const COtxValue& right) const { return left / right; }
};

struct Remainder {
    bool operator()(long long left, long long right, long long& result) const noexcept {
        if (right <= 0) return false;
        result = left % right;
        return true;
    }
    COtxValue operator()(const COtxValue& left, const COtxValue& right) const { return left % right; }
};

// The number of a literal, or of a variable of the running procedure that holds an Integer; false for all else. Has no
// effect, so that a caller may evaluate the term as ever after a false.
inline bool readInteger(const Term& term, OtxContext& context, long long& number) {
    if (const auto* const literal = exactly<IntegerLiteral>(term)) {
        number = literal->value();
        return true;
    }
    const auto* const variable = exactly<IntegerValue>(term);
    return variable != nullptr && !variable->path().present() &&
           context.Variables().GetInteger(variable->valueOf().key(), number);
}

// The first before the second, as everywhere.
inline bool readIntegers(const Term& first, const Term& second, OtxContext& context, long long& left, long long& right) {
    return readInteger(first, context, left) && readInteger(second, context, right);
}

template <class Operation>
bool calculateIntegers(const Term& first, const Term& second, OtxContext& context, Operation operation, long long& result) {
    long long left = 0;
    long long right = 0;
    return readIntegers(first, second, context, left, right) && operation(left, right, result);
}

// The value of a term if it is a literal integer, or the sum, difference or product of two numbers that readInteger gives.
// False for all else, and then without an effect.
inline bool calculateInteger(const Term& term, OtxContext& context, long long& number) {
    if (const auto* const sum = exactly<Add>(term))
        return sum->numeral().size() == 2 &&
               calculateIntegers(sum->numeral()[0], sum->numeral()[1], context, Sum(), number);
    if (const auto* const difference = exactly<Subtract>(term))
        return calculateIntegers(difference->numeral(), difference->subtrahend(), context, Difference(), number);
    if (const auto* const product = exactly<Multiply>(term))
        return product->numeral().size() == 2 &&
               calculateIntegers(product->numeral()[0], product->numeral()[1], context, Product(), number);
    if (const auto* const literal = exactly<IntegerLiteral>(term)) {
        number = literal->value();
        return true;
    }
    return false;
}

// The same, also for a variable of the running procedure whose Integer nobody else has a handle of: that it isn't shared makes
// no difference to anybody.
inline bool calculateFreshInteger(const Term& term, OtxContext& context, long long& number) {
    const auto* const variable = exactly<IntegerValue>(term);
    if (variable == nullptr) return calculateInteger(term, context, number);
    return !variable->path().present() && context.Variables().GetSoleInteger(variable->valueOf().key(), number);
}

// What evaluate(term).Bool() gives.
bool evaluateTruth(const Term& term, OtxContext& context);

}  // namespace otxns
