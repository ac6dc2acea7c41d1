// Whether a realisation is valid for the running procedure.
#pragma once

#include <OTXContext/OtxContext.h>

namespace otxns {

// A realisation without `validFor` is valid; else the variable of that name decides.
template <class Realisation>
bool isValid(const Realisation& realisation, OtxContext& context) {
    const auto& validFor = realisation.validFor();
    return !validFor.present() || context.Variables().Get(validFor->key()).Bool();
}

}  // namespace otxns
