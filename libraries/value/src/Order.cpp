// The order of values: by family, then by value.
#include "Order.h"

#include <cmath>

namespace otx {

namespace {

using Native = COtxValueBehaviour::Native;

int family(const COtxValueBehaviour* behaviour) noexcept {
    constexpr int afterNatives = 100;
    if (behaviour == nullptr) return 0;
    switch (behaviour->NativeKind()) {
        case Native::Boolean: return 1;
        case Native::Integer:
        case Native::Float: return 2;
        case Native::String: return 3;
        case Native::ByteField: return 4;
        case Native::List: return 5;
        case Native::Map: return 6;
        case Native::None: break;
    }
    if (behaviour->IsInt()) return 2;
    return behaviour->Type() == OTX::ValueType::Empty ? 0 : afterNatives + static_cast<int>(behaviour->Type());
}

}  // namespace

std::strong_ordering compareFamilies(const COtxValueBehaviour* left, const COtxValueBehaviour* right) noexcept {
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
    const bool leftIsFloat = left.NativeKind() == Native::Float;
    const bool rightIsFloat = right.NativeKind() == Native::Float;
    if (leftIsFloat && rightIsFloat) return compareNumbers(left.Float(), right.Float());
    if (rightIsFloat) return compareNumbers(left.Int(), right.Float());
    if (leftIsFloat) return 0 <=> compareNumbers(right.Int(), left.Float());
    return left.Int() <=> right.Int();
}

}  // namespace otx
