// The unit that a unit's numbers have after conversion to base units.
#include "BaseUnit.h"

#include "UnitParser.h"
#include "UnitProduct.h"

namespace otx {

namespace {

// Of one unit without its prefix.
UnitTerms baseOf(const UnitEntry& entry) {
    const UnitEntry* const coherent = entry.scale.isOne() ? &entry : coherentUnit(entry.dimension);
    UnitTerms terms;
    if (coherent != nullptr) {
        terms.add({coherent, nullptr, {}, 1});
        return terms;
    }
    for (std::size_t i = 0; i < Dimension::symbols.size(); ++i) {
        if (entry.dimension.powers[i] == 0) continue;
        UnitTerm term = *parseUnit(Dimension::symbols[i])->begin();
        term.power = entry.dimension.powers[i];
        terms.add(term);
    }
    return terms;
}

}  // namespace

std::string baseUnitName(const UnitTerms& terms) {
    UnitProduct product;
    for (const UnitTerm& term : terms) {
        if (term.isNumber()) continue;
        UnitTerms base = baseOf(*term.entry);
        for (UnitTerm& factor : base) factor.power *= term.power;
        product.append(base);
    }
    return product.terms().name();
}

}  // namespace otx
