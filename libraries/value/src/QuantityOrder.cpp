// Equality and order of quantities.
#include "QuantityOrder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "Numbers.h"
#include "Order.h"
#include "UnitValues.h"

namespace otx {

namespace {

// Far beyond what 15 digits could hide.
constexpr long double clearlyApart = 1e-13L;
constexpr int significantDigits = 15;

// A double rounded, as text that is unique to it.
class Rounded {
public:
    explicit Rounded(double number) noexcept
        : end_(std::to_chars(text_.data(), text_.data() + text_.size(), number, std::chars_format::scientific,
                             significantDigits - 1)
                   .ptr) {}
    std::string_view text() const noexcept { return {text_.data(), end_}; }

private:
    std::array<char, 32> text_{};
    char* end_;
};

// Into the range of a double, by a factor that numbers close to each other share.
double inRange(long double number) noexcept {
    constexpr long double far = 1e290L;
    constexpr long double step = 1e200L;
    while (std::fabs(number) > far) number /= step;
    while (number != 0 && std::fabs(number) < 1 / far) number *= step;
    return static_cast<double>(number);
}

std::weak_ordering compareRounded(long double left, long double right) noexcept {
    if (std::isnan(left) || std::isnan(right)) return std::isnan(right) <=> std::isnan(left);
    if (left == right) return std::weak_ordering::equivalent;
    const bool apart = std::isinf(left) || std::isinf(right) ||
                       std::fabs(left - right) > clearlyApart * std::max(std::fabs(left), std::fabs(right));
    if (!apart && Rounded(inRange(left)).text() == Rounded(inRange(right)).text())
        return std::weak_ordering::equivalent;
    return left < right ? std::weak_ordering::less : std::weak_ordering::greater;
}

// Whether two numbers in one unit are so far apart that their order stands without knowing the unit. The zero of no
// temperature is further than the shift from 0 K, and no scale takes a number below the limit out of the range of
// doubles.
bool areFarApart(double left, double right) noexcept {
    constexpr double largestShift = 1000;
    constexpr double limit = 1e100;
    const double larger = std::max(std::fabs(left), std::fabs(right));
    return larger < limit && std::fabs(left - right) > static_cast<double>(clearlyApart) * (larger + largestShift);
}

// The unit has no dimension.
double plainNumber(const QuantityData& quantity, const ResolvedUnit& unit) {
    const auto base = static_cast<double>(unit.scale.toBase(quantity.number));
    if (unitName(quantity.unit).empty() || !std::isfinite(base)) return base;
    return parseFloat(Rounded(base).text()).value;
}

// The units are of one dimension.
std::weak_ordering compareInBase(const QuantityData& left, const ResolvedUnit& leftUnit, const QuantityData& right,
                                 const ResolvedUnit& rightUnit) {
    if (leftUnit.dimension.isNone()) return compareNumbers(plainNumber(left, leftUnit), plainNumber(right, rightUnit));
    return compareRounded(leftUnit.scale.toBase(left.number), rightUnit.scale.toBase(right.number));
}

std::weak_ordering compareInOneUnit(const QuantityData& left, const QuantityData& right) {
    if (left.number == right.number || areFarApart(left.number, right.number) || unitName(left.unit).empty())
        return compareNumbers(left.number, right.number);
    const std::optional<ResolvedUnit> unit = resolvedUnit(left.unit);
    return unit ? compareInBase(left, *unit, right, *unit) : compareNumbers(left.number, right.number);
}

}  // namespace

bool haveSameUnit(const QuantityData& left, const QuantityData& right) {
    return unitName(left.unit) == unitName(right.unit);
}

std::optional<double> plainNumber(const QuantityData& quantity) {
    if (unitName(quantity.unit).empty()) return quantity.number;
    const std::optional<ResolvedUnit> unit = resolvedUnit(quantity.unit);
    if (!unit || !unit->dimension.isNone()) return {};
    return plainNumber(quantity, *unit);
}

std::weak_ordering compareQuantities(const QuantityData& left, const QuantityData& right) {
    if (haveSameUnit(left, right)) return compareInOneUnit(left, right);
    const std::optional<ResolvedUnit> leftUnit = resolvedUnit(left.unit);
    const std::optional<ResolvedUnit> rightUnit = resolvedUnit(right.unit);
    if (!leftUnit || !rightUnit) {
        if (leftUnit.has_value() != rightUnit.has_value()) return rightUnit.has_value() <=> leftUnit.has_value();
        return unitName(left.unit) <=> unitName(right.unit);
    }
    if (const auto order = leftUnit->dimension <=> rightUnit->dimension; order != 0) return order;
    return compareInBase(left, *leftUnit, right, *rightUnit);
}

}  // namespace otx
