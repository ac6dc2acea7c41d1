// What a unit measures: the powers of the base units in it.
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace otx {

// Units of one dimension convert into each other. Plane angle and information have no dimension in the SI; here they
// do, so that neither a frequency nor a plain number turns into an angle or a bit rate unnoticed.
struct Dimension {
    static constexpr std::array<std::string_view, 9> symbols{"m", "kg", "s", "A", "K", "mol", "cd", "rad", "bit"};

    // In the order of the symbols.
    std::array<std::int16_t, symbols.size()> powers{};

    constexpr bool isNone() const noexcept { return *this == Dimension{}; }

    constexpr Dimension toThe(int power) const noexcept {
        Dimension result;
        for (std::size_t i = 0; i < powers.size(); ++i) result.powers[i] = static_cast<std::int16_t>(powers[i] * power);
        return result;
    }

    friend constexpr Dimension operator*(const Dimension& left, const Dimension& right) noexcept {
        Dimension result;
        for (std::size_t i = 0; i < result.powers.size(); ++i)
            result.powers[i] = static_cast<std::int16_t>(left.powers[i] + right.powers[i]);
        return result;
    }

    friend constexpr auto operator<=>(const Dimension&, const Dimension&) = default;
};

}  // namespace otx
