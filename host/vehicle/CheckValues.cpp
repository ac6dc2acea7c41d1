// Checks values of a vehicle file by what becomes of them when a sequence uses them.
#include "vehicle/ReadParts.h"

#include "diag/CodedValue.h"
#include "diag/ComParameters.h"

#include <otx/value/COtxException.h>

namespace velkotx::host {

void checkValue(const JsonPlace& place, const PlainValue& value, const ParameterDescription& parameter) {
    try {
        encoded(toValue(value), parameter);
    } catch (const COtxValue& failure) {
        place.mistake(failure.Exception().Text());
    }
}

void checkComParameter(const JsonPlace& place, const ComParameterDescription& parameter) {
    try {
        ComParameters({parameter}).timing();
    } catch (const COtxValue& failure) {
        place.mistake(failure.Exception().Text());
    }
}

}  // namespace velkotx::host
