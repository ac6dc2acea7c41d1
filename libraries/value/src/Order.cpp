// The order of values: by family, then by value.
#include "Order.h"

#include <cmath>

#include "QuantityOrder.h"

namespace otx {

namespace {

using Native = COtxValueBehaviour::Native;

constexpr int numbers = 2;
constexpr int afterNatives = 100;

int familyOf(OTX::ValueType type) noexcept { return afterNatives + 2 * static_cast<int>(type); }

// A quantity without a dimension is a number. One that isn't the library's own knows no order but its own.
int familyOfQuantity(const COtxValueBehaviour& behaviour) {
    const QuantityData* const quantity = ownQuantity(behaviour);
    if (quantity == nullptr) return familyOf(OTX::ValueType::Quantity) + 1;
    return plainNumber(*quantity) ? numbers : familyOf(OTX::ValueType::Quantity);
}

int family(const COtxValueBehaviour* behaviour) {
    if (behaviour == nullptr) return 0;
    switch (behaviour->NativeKind()) {
        case Native::Boolean: return 1;
        case Native::Integer:
        case Native::Float: return numbers;
        case Native::String: return 3;
        case Native::ByteField: return 4;
        case Native::List: return 5;
        case Native::Map: return 6;
        case Native::None: break;
    }
    if (behaviour->IsInt()) return numbers;
    if (behaviour->Type() == OTX::ValueType::Quantity) return familyOfQuantity(*behaviour);
    return behaviour->Type() == OTX::ValueType::Empty ? 0 : familyOf(behaviour->Type());
}

// Two quantities that need no table of units to be of one family.
bool areOfOneUnit(const COtxValueBehaviour* left, const COtxValueBehaviour* right) {
    if (left == nullptr || right == nullptr || left->Type() != OTX::ValueType::Quantity) return false;
    const QuantityData* const first = ownQuantity(*left);
    const QuantityData* const second = ownQuantity(*right);
    return first != nullptr && second != nullptr && haveSameUnit(*first, *second);
}

bool isFloat(const COtxValueBehaviour& number) {
    return number.NativeKind() == Native::Float || ownQuantity(number) != nullptr;
}

double floatOf(const COtxValueBehaviour& number) {
    return number.NativeKind() == Native::Float ? number.Float() : *plainNumber(*ownQuantity(number));
}

}  // namespace

std::strong_ordering compareFamilies(const COtxValueBehaviour* left, const COtxValueBehaviour* right) {
    if (areOfOneUnit(left, right)) return std::strong_ordering::equal;
    return family(left) <=> family(right);
}

std::weak_ordering compareNumbers(long long left, double right) noexcept {
    constexpr double beyond = 9223372036854775808.0;
    if (std::isnan(right)) return std::weak_ordering::greater;
    if (right >= beyond) return std::weak_ordering::less;
    if (right < -beyond) return std::weak_ordering::greater;
    const auto whole = static_cast<long long>(right);
    if (left != whole) return left < whole ? std::weak_ordering::less : std::weak_ordering::greater;
    const double fraction = right - static_cast<double>(whole);
    if (fraction > 0) return std::weak_ordering::less;
    return fraction < 0 ? std::weak_ordering::greater : std::weak_ordering::equivalent;
}

std::weak_ordering compareNumbers(double left, double right) noexcept {
    if (left < right) return std::weak_ordering::less;
    if (left > right) return std::weak_ordering::greater;
    return std::isnan(right) <=> std::isnan(left);
}

std::weak_ordering compareNumbers(const COtxValueBehaviour& left, const COtxValueBehaviour& right) {
    const bool leftIsFloat = isFloat(left);
    const bool rightIsFloat = isFloat(right);
    if (leftIsFloat && rightIsFloat) return compareNumbers(floatOf(left), floatOf(right));
    if (rightIsFloat) return compareNumbers(left.Int(), floatOf(right));
    if (leftIsFloat) return 0 <=> compareNumbers(right.Int(), floatOf(left));
    return left.Int() <=> right.Int();
}

}  // namespace otx
