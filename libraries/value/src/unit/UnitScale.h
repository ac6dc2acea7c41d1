// From the numbers in a unit to those in base units, and back.
#pragma once

#include <cmath>

namespace otx {

// base = (number * numerator + shift) / denominator. The parts are whole numbers wherever the unit's definition
// allows it, and long doubles, so that 72 km/h are exactly 20 m/s and 68 degF exactly 20 degC.
struct UnitScale {
    long double numerator = 1;
    long double denominator = 1;
    // Not zero for a temperature whose zero isn't 0 K.
    long double shift = 0;

    // Scales only: a temperature with a shift takes part in a product as a difference.
    friend constexpr UnitScale operator*(const UnitScale& left, const UnitScale& right) noexcept {
        return {left.numerator * right.numerator, left.denominator * right.denominator, 0};
    }

    constexpr UnitScale toThe(int power) const noexcept {
        UnitScale result;
        for (int i = power; i > 0; --i) result = result * UnitScale{numerator, denominator, 0};
        for (int i = power; i < 0; ++i) result = result * UnitScale{denominator, numerator, 0};
        return result;
    }

    constexpr bool isOne() const noexcept { return numerator == denominator && shift == 0; }

    long double toBase(long double number) const noexcept {
        const long double base = (number * numerator + shift) / denominator;
        return shift != 0 ? settled(base) : base;
    }

    // The number in the other unit.
    long double convert(long double number, const UnitScale& other) const noexcept {
        const long double converted =
            ((number * numerator + shift) * other.denominator / denominator - other.shift) / other.numerator;
        return shift != 0 || other.shift != 0 ? settled(converted) : converted;
    }

    // The same of a difference of two numbers, which no shift touches.
    constexpr long double convertDifference(long double number, const UnitScale& other) const noexcept {
        return number * numerator * other.denominator / denominator / other.numerator;
    }

private:
    // A double holds a temperature to some 1e-13 degrees. What is finer comes of a shift alone, and would make a
    // difference between -273.15 degC and 0 K.
    static long double settled(long double temperature) noexcept {
        constexpr long double resolution = 1e12L;
        constexpr long double largest = 1000;
        return std::fabs(temperature) < largest ? std::round(temperature * resolution) / resolution : temperature;
    }
};

}  // namespace otx
