// Conversions of the value library in the name of a parameter.
#pragma once

#include <vehicle/ServiceDescription.h>

#include <otx/value/COtxValue.h>

#include <utility>

namespace velkotx::host {

// Throws the failure again with the parameter's name. What is wrong with a number or with bytes becomes kind 7; a type that
// doesn't fit and the kinds of quantities stay.
[[noreturn]] void failFor(const ParameterDescription& parameter, const COtxValue& failure);

// Gives what the conversion gives.
template <class Conversion>
auto convertedFor(const ParameterDescription& parameter, Conversion&& conversion) {
    try {
        return std::forward<Conversion>(conversion)();
    } catch (const COtxValue& failure) {
        failFor(parameter, failure);
    }
}

}  // namespace velkotx::host
