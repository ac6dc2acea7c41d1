// Building units from others.
#include "UnitProduct.h"

#include <cstdlib>

#include "Refusal.h"

namespace otx {

void UnitProduct::append(const UnitTerms& terms, int power) {
    for (UnitTerm term : terms) {
        term.power *= power;
        append(term);
    }
    terms_.removeWithoutPower();
}

void UnitProduct::append(const UnitTerm& term) {
    if (term.dimension().isNone())
        scale_ = scale_ * term.scale().toThe(term.power);
    else if (!merge(term) && !terms_.add(term))
        fail(OTX::Exceptions_e::QuantityException, "The unit " + terms_.name() + " has too many factors");
}

bool UnitProduct::merge(const UnitTerm& term) {
    for (UnitTerm& earlier : terms_) {
        const bool same = term.dimension() == earlier.dimension();
        if (!same && term.dimension() != earlier.dimension().toThe(-1)) continue;
        const int power = same ? term.power : -term.power;
        // An equal unit leaves the number alone, to the last bit.
        if (!same || term.entry != earlier.entry || term.prefix != earlier.prefix)
            scale_ = scale_ * term.scale().toThe(term.power) * earlier.scale().toThe(-power);
        earlier.power += power;
        if (std::abs(earlier.power) > UnitTerm::largestPower)
            fail(OTX::Exceptions_e::QuantityException, "The power of the unit " + earlier.text() + " is too large");
        return true;
    }
    return false;
}

}  // namespace otx
