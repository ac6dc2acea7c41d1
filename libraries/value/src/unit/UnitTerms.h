// A unit taken apart: a product of powers of units.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "UnitTable.h"

namespace otx {

// One factor: a unit with its prefix, or a number.
struct UnitTerm {
    static constexpr int largestPower = 99;

    // Null for a number.
    const UnitEntry* entry = nullptr;
    const UnitPrefix* prefix = nullptr;
    // The number's digits with at most one point; part of the name that was parsed.
    std::string_view digits;
    int power = 1;

    bool isNumber() const noexcept { return entry == nullptr; }
    // Both without the power.
    UnitScale scale() const noexcept;
    Dimension dimension() const noexcept { return isNumber() ? Dimension() : entry->dimension; }
    // The symbol with its prefix, or the digits; without the power.
    std::string text() const;
};

// In the order in which they are written. Holds no memory of its own; at most `capacity` terms.
class UnitTerms {
public:
    static constexpr std::size_t capacity = 16;

    // False when there is no room.
    bool add(const UnitTerm& term) noexcept {
        if (size_ == capacity) return false;
        terms_[size_++] = term;
        return true;
    }
    void removeWithoutPower() noexcept;

    UnitTerm* begin() noexcept { return terms_.data(); }
    UnitTerm* end() noexcept { return terms_.data() + size_; }
    const UnitTerm* begin() const noexcept { return terms_.data(); }
    const UnitTerm* end() const noexcept { return terms_.data() + size_; }
    std::size_t size() const noexcept { return size_; }

    // The name that parses to these terms, such as "W/(m2.K)"; "" for none.
    std::string name() const;

private:
    std::array<UnitTerm, capacity> terms_;
    std::size_t size_ = 0;
};

}  // namespace otx
