// Numbers and their texts, without any locale; and checked arithmetic.
#pragma once

#include <otx/value/COtxValue.h>

#include <optional>
#include <string>
#include <string_view>

namespace otx {

// The shortest text that reads back to the same double, with ".0" where it would look like an integer; "NaN", "INF",
// "-INF" for what is no number.
std::string floatText(double value);
// The same of the number rounded to so many significant digits; of the number itself when they aren't between 1 and
// 16.
std::string floatText(double value, int digits);

enum class NumberError { NotANumber, OutOfRange };

// A number or why the text is none.
template <class Number>
struct ParsedNumber {
    Number value{};
    std::optional<NumberError> error;
};

// A decimal integer with an optional sign, blanks around it allowed.
ParsedNumber<long long> parseInteger(std::string_view text) noexcept;
// A decimal number with optional sign, point and exponent, blanks around it allowed. What is too small for a double
// is 0.
ParsedNumber<double> parseFloat(std::string_view text) noexcept;

// The operators on a number and another number or a Quantity (see QuantityArithmetic.h). With a Float on either side
// the result is a Float. Throw kind 3 for results that don't fit and for division by zero, kind 5 where the right
// operand is neither.
enum class Operation { Add, Subtract, Multiply, Divide, Modulo };
COtxValue calculate(Operation operation, const COtxValueBehaviour& left, const COtxValue& right);
// Both are integers.
COtxValue calculate(Operation operation, long long left, long long right);
// Both are Floats.
double calculate(Operation operation, double left, double right);

// The absolute value. Throws kind 3 for what is no finite number.
double absolute(double value);

const char* nameOf(Operation operation);
// Throws kind 3.
[[noreturn]] void failArithmetic(Operation operation, const std::string& left, const std::string& right,
                                 const char* reason);

// The double cut to an integer. Throws kind 3 outside 64 bits.
long long truncated(double value);

}  // namespace otx
