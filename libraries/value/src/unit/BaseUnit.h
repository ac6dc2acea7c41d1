// The unit that a unit's numbers have after conversion to base units.
#pragma once

#include <string>

#include "UnitTerms.h"

namespace otx {

// The name of the coherent SI unit, factor by factor: "km/h" gives "m/s", "Nm" gives "N.m", "kWh" gives "W.s".
std::string baseUnitName(const UnitTerms& terms);

}  // namespace otx
