// Building units from others.
#pragma once

#include "UnitTerms.h"

namespace otx {

// Collects factors into a unit in which each kind of thing occurs once. A factor of the dimension of an earlier one,
// or of its inverse, is expressed by the earlier one; numbers and units without a dimension are no part of the unit.
// What that changes in the quantity's number stands in the scale: km/h times s is km, and the number is divided by
// 3600.
class UnitProduct {
public:
    // All of the terms, to the power 1 or -1. Throws kind 16 for powers above 99 and for more factors than there is
    // room.
    void append(const UnitTerms& terms, int power = 1);

    const UnitTerms& terms() const noexcept { return terms_; }
    // Multiply the number by its numerator, and divide it by its denominator.
    const UnitScale& scale() const noexcept { return scale_; }

private:
    void append(const UnitTerm& term);
    // Whether an earlier factor took it in.
    bool merge(const UnitTerm& term);

    UnitTerms terms_;
    UnitScale scale_;
};

}  // namespace otx
