// Which variant of a control unit answers.
#pragma once

#include "diag/UdsChannel.h"

#include <vehicle/ControlUnitDescription.h>

#include <string>

namespace velkotx::host {

struct IdentifiedVariant {
    const VariantDescription* variant;  // null: none fits
    std::string why;                    // what each variant fails at, when none fits
};

// Reads the data identifiers that the matches name, each once, and gives the first variant all of whose matches fit; null
// when none does. A negative response fits nothing. Throws kind 15 when there is no response, and as executeAndWait does.
IdentifiedVariant identifyVariant(UdsChannel& channel, const ControlUnitDescription& unit);

}  // namespace velkotx::host
