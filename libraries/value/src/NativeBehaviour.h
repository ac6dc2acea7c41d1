// What the library's plain data types have in common.
#pragma once

#include <otx/value/COtxValue.h>

#include <compare>

#include "Order.h"

namespace otx {

// A native behaviour over one way to compare: Kind::compare(right) for values of its own family.
template <class Kind>
class NativeBehaviour : public COtxValueBehaviour {
public:
    bool operator==(const COtxValueBehaviour* other) const final { return equals(other); }
    bool IsEqual(const COtxValue& right) const final { return equals(right.GetBehaviourReference().get()); }
    bool IsNotEqual(const COtxValue& right) const final { return !IsEqual(right); }
    bool IsLessThan(const COtxValue& right) const final { return compare(right) < 0; }
    bool IsLessThanOrEqual(const COtxValue& right) const final { return compare(right) <= 0; }
    bool IsGreaterThan(const COtxValue& right) const final { return compare(right) > 0; }
    bool IsGreaterThanOrEqual(const COtxValue& right) const final { return compare(right) >= 0; }

protected:
    using COtxValueBehaviour::COtxValueBehaviour;

private:
    bool equals(const COtxValueBehaviour* other) const {
        return compareFamilies(this, other) == 0 && static_cast<const Kind&>(*this).equalTo(*other);
    }
    std::weak_ordering compare(const COtxValue& right) const {
        const COtxValueBehaviour* const other = right.GetBehaviourReference().get();
        if (const auto order = compareFamilies(this, other); order != 0) return order;
        return static_cast<const Kind&>(*this).compareWith(*other);
    }
};

}  // namespace otx
