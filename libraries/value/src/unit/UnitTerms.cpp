// A unit taken apart: a product of powers of units.
#include "UnitTerms.h"

#include <algorithm>
#include <cstdlib>

namespace otx {

namespace {

UnitScale scaleOf(std::string_view digits) noexcept {
    UnitScale scale;
    scale.numerator = 0;
    bool pointSeen = false;
    for (const char character : digits) {
        if (character == '.') {
            pointSeen = true;
            continue;
        }
        scale.numerator = scale.numerator * 10 + static_cast<long double>(character - '0');
        if (pointSeen) scale.denominator *= 10;
    }
    return scale;
}

struct Side {
    std::string text;
    std::size_t factors = 0;
};

// The terms with powers of one sign. A number stands right before its unit, as in "100km".
Side write(const UnitTerms& terms, int sign) {
    Side side;
    const UnitTerm* before = nullptr;
    for (const UnitTerm& term : terms) {
        const int power = term.power * sign;
        if (power <= 0) continue;
        const bool joins = before != nullptr && before->isNumber() && before->power == sign && !term.isNumber();
        if (before != nullptr && !joins) side.text += term.isNumber() ? "*" : ".";
        if (!joins) ++side.factors;
        side.text += term.text();
        if (power > 1 && term.isNumber()) side.text += "^";
        if (power > 1) side.text += std::to_string(power);
        before = &term;
    }
    return side;
}

}  // namespace

UnitScale UnitTerm::scale() const noexcept {
    if (isNumber()) return scaleOf(digits);
    return prefix != nullptr ? prefix->scale() * entry->scale : entry->scale;
}

std::string UnitTerm::text() const {
    if (isNumber()) return std::string(digits);
    return std::string(prefix != nullptr ? prefix->symbol : std::string_view()) + std::string(entry->symbol);
}

void UnitTerms::removeWithoutPower() noexcept {
    size_ = static_cast<std::size_t>(
        std::remove_if(begin(), end(), [](const UnitTerm& term) { return term.power == 0; }) - begin());
}

std::string UnitTerms::name() const {
    const Side above = write(*this, 1);
    const Side below = write(*this, -1);
    std::string name(above.factors == 0 && below.factors > 0 ? std::string_view("1") : above.text);
    if (below.factors == 0) return name;
    name += below.factors == 1 ? "/" : "/(";
    name += below.text;
    if (below.factors > 1) name += ")";
    return name;
}

}  // namespace otx
