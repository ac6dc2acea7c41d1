// Checks values of a vehicle file by what becomes of them when a sequence uses them.
#include "vehicle/ReadParts.h"

#include "diag/CodedValue.h"
#include "diag/ComParameters.h"

#include <otx/value/COtxException.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace velkotx::host {

namespace {

struct CodedRange {
    double lowest;
    double highest;
};

// Of whole numbers; nothing for other codings.
std::optional<CodedRange> codedRange(const ParameterDescription& parameter) {
    const auto bits = static_cast<int>(parameter.bitLength);
    switch (parameter.coding) {
        case Coding::Unsigned: return CodedRange{0, std::ldexp(1, bits) - 1};
        case Coding::Signed: return CodedRange{-std::ldexp(1, bits - 1), std::ldexp(1, bits - 1) - 1};
        case Coding::Bcd: return CodedRange{0, std::pow(10, bits / 4) - 1};
        default: return std::nullopt;
    }
}

}  // namespace

void checkValue(const JsonPlace& place, const PlainValue& value, const ParameterDescription& parameter) {
    try {
        encoded(toValue(value), parameter);
    } catch (const COtxValue& failure) {
        place.mistake(failure.Exception().Text());
    }
}

void checkLimits(const JsonPlace& place, const ParameterDescription& parameter) {
    const auto coded = codedRange(parameter);
    if (!coded || (!parameter.minimum && !parameter.maximum))
        return;
    // Up to half a step beyond is rounded to what can be coded.
    const auto [one, other] = std::minmax(
        {(coded->lowest - 0.5) * parameter.scaling.factor + parameter.scaling.offset,
         (coded->highest + 0.5) * parameter.scaling.factor + parameter.scaling.offset});
    if ((parameter.minimum && *parameter.minimum > other) || (parameter.maximum && *parameter.maximum < one))
        place.mistake("no value of " + std::to_string(parameter.bitLength) + " bits lies within its limits");
}

void checkComParameter(const JsonPlace& place, const ComParameterDescription& parameter) {
    try {
        ComParameters({parameter}).timing();
    } catch (const COtxValue& failure) {
        place.mistake(failure.Exception().Text());
    }
}

}  // namespace velkotx::host
