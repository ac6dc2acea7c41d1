// Numbers and their texts, without any locale; and checked arithmetic.
#include "Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "NumberValues.h"
#include "QuantityArithmetic.h"
#include "Refusal.h"

namespace otx {

namespace {

using Native = COtxValueBehaviour::Native;

constexpr bool isBlank(char character) {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

// The text without blanks around it and without a plus sign, which std::from_chars doesn't take.
std::string_view bareNumber(std::string_view text) noexcept {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

// Whether a decimal number that is no double is so because it is too small. The magnitude is that of its first digit
// that isn't zero.
bool isTooSmall(std::string_view number) noexcept {
    long long magnitude = 0;
    bool pointSeen = false;
    bool digitSeen = false;
    std::size_t place = 0;
    for (; place < number.size() && number[place] != 'e' && number[place] != 'E'; ++place) {
        const char character = number[place];
        if (character == '.') {
            pointSeen = true;
        } else if (character != '-') {
            digitSeen = digitSeen || character != '0';
            if (digitSeen && !pointSeen) ++magnitude;
            if (!digitSeen && pointSeen) --magnitude;
        }
    }
    if (!digitSeen) return true;
    if (place == number.size()) return magnitude < 0;
    std::string_view exponentText = number.substr(place + 1);
    const bool negative = !exponentText.empty() && exponentText.front() == '-';
    if (!exponentText.empty() && (exponentText.front() == '-' || exponentText.front() == '+')) exponentText.remove_prefix(1);
    long long exponent = 0;
    const auto end = exponentText.data() + exponentText.size();
    if (std::from_chars(exponentText.data(), end, exponent).ec != std::errc()) return negative;
    // The sum of both may be none.
    return negative ? magnitude < exponent : exponent < -magnitude;
}

}  // namespace

std::string floatText(double value) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0 ? "-INF" : "INF";
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    std::string text(digits.data(), end);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    return text;
}

std::string floatText(double value, int digits) {
    if (digits < 1 || digits > std::numeric_limits<double>::digits10 + 1 || !std::isfinite(value))
        return floatText(value);
    std::array<char, 32> rounded{};
    char* const last = rounded.data() + rounded.size();
    const auto end = std::to_chars(rounded.data(), last, value, std::chars_format::scientific, digits - 1).ptr;
    double nearest = value;
    // Rounding up may go past the largest double, which then keeps its digits.
    std::from_chars(rounded.data(), end, nearest);
    return floatText(nearest);
}

ParsedNumber<long long> parseInteger(std::string_view text) noexcept {
    const std::string_view number = bareNumber(text);
    ParsedNumber<long long> parsed;
    const auto end = number.data() + number.size();
    const auto result = std::from_chars(number.data(), end, parsed.value);
    if (result.ec == std::errc::invalid_argument || result.ptr != end)
        parsed.error = NumberError::NotANumber;
    else if (result.ec != std::errc())
        parsed.error = NumberError::OutOfRange;
    return parsed;
}

ParsedNumber<double> parseFloat(std::string_view text) noexcept {
    const std::string_view number = bareNumber(text);
    ParsedNumber<double> parsed;
    // std::from_chars would take "inf" and "nan" too.
    if (number.find_first_not_of("+-.0123456789eE") != std::string_view::npos) {
        parsed.error = NumberError::NotANumber;
        return parsed;
    }
    const auto end = number.data() + number.size();
    const auto result = std::from_chars(number.data(), end, parsed.value);
    if (result.ec == std::errc::invalid_argument || result.ptr != end)
        parsed.error = NumberError::NotANumber;
    else if (result.ec == std::errc::result_out_of_range && isTooSmall(number))
        parsed.value = number.front() == '-' ? -0.0 : 0.0;
    else if (result.ec != std::errc())
        parsed.error = NumberError::OutOfRange;
    return parsed;
}

const char* nameOf(Operation operation) {
    switch (operation) {
        case Operation::Add: return "Add";
        case Operation::Subtract: return "Subtract";
        case Operation::Multiply: return "Multiply";
        case Operation::Divide: return "Divide";
        case Operation::Modulo: return "Modulo";
    }
    return "";
}

void failArithmetic(Operation operation, const std::string& left, const std::string& right, const char* reason) {
    fail(OTX::Exceptions_e::ArithmeticException,
         std::string(nameOf(operation)) + " of " + left + " and " + right + ": " + reason);
}

double calculate(Operation operation, double left, double right) {
    if (right == 0 && (operation == Operation::Divide || operation == Operation::Modulo))
        failArithmetic(operation, floatText(left), floatText(right), "division by zero");
    double result = 0;
    switch (operation) {
        case Operation::Add: result = left + right; break;
        case Operation::Subtract: result = left - right; break;
        case Operation::Multiply: result = left * right; break;
        case Operation::Divide: result = left / right; break;
        case Operation::Modulo: result = std::fmod(left, right); break;
    }
    if (!std::isfinite(result))
        failArithmetic(operation, floatText(left), floatText(right), "the result is not a finite number");
    return result;
}

COtxValue calculate(Operation operation, const COtxValueBehaviour& left, const COtxValue& right) {
    const COtxValueBehaviour* const other = right.GetBehaviourReference().get();
    const bool leftIsFloat = left.NativeKind() == Native::Float;
    const bool rightIsFloat = other != nullptr && other->NativeKind() == Native::Float;
    const auto leftReal = [&] { return leftIsFloat ? left.Float() : static_cast<double>(left.Int()); };
    if (!rightIsFloat && (other == nullptr || !other->IsInt()))
        return calculate(operation, QuantityData{leftReal(), {}}, left.Type(), right);
    if (!leftIsFloat && !rightIsFloat) return calculate(operation, left.Int(), other->Int());
    return makeFloat(
        calculate(operation, leftReal(), rightIsFloat ? other->Float() : static_cast<double>(other->Int())));
}

COtxValue calculate(Operation operation, long long left, long long right) {
    long long result = 0;
    bool overflow = false;
    switch (operation) {
        case Operation::Add: overflow = __builtin_add_overflow(left, right, &result); break;
        case Operation::Subtract: overflow = __builtin_sub_overflow(left, right, &result); break;
        case Operation::Multiply: overflow = __builtin_mul_overflow(left, right, &result); break;
        case Operation::Divide:
        case Operation::Modulo:
            if (right == 0)
                failArithmetic(operation, std::to_string(left), std::to_string(right), "division by zero");
            if (operation == Operation::Modulo) {
                // The processor traps on the smallest integer modulo -1, whose remainder is 0.
                result = right == -1 ? 0 : left % right;
            } else if (right == -1) {
                overflow = __builtin_sub_overflow(0LL, left, &result);
            } else {
                result = left / right;
            }
            break;
    }
    if (overflow)
        failArithmetic(operation, std::to_string(left), std::to_string(right), "the result is beyond 64 bits");
    return makeInteger(result);
}

double absolute(double value) {
    if (!std::isfinite(value))
        fail(OTX::Exceptions_e::ArithmeticException,
             "Abs of " + floatText(value) + ": the result is not a finite number");
    return std::fabs(value);
}

long long truncated(double value) {
    constexpr double beyond = 9223372036854775808.0;
    if (!(value >= -beyond && value < beyond))
        fail(OTX::Exceptions_e::ArithmeticException, "Float " + floatText(value) + " is beyond a 64-bit Integer");
    return static_cast<long long>(value);
}

}  // namespace otx
