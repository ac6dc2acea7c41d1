// The conversion terms.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>

namespace otxns {

namespace {

COtxValue convert(const Term& term, OtxContext& context, COtxValue (COtxValue::*conversion)() const) {
    return converted(evaluate(term, context), context, conversion);
}

}  // namespace

template <>
COtxValue ToBoolean_impl<ToBoolean_base>::eval(OtxContext& context) const {
    return convert(term(), context, &COtxValue::ToBoolean);
}

template <>
COtxValue ToInteger_impl<ToInteger_base>::eval(OtxContext& context) const {
    return convert(term(), context, &COtxValue::ToInteger);
}

template <>
COtxValue ToFloat_impl<ToFloat_base>::eval(OtxContext& context) const {
    return convert(term(), context, &COtxValue::ToFloat);
}

template <>
COtxValue ToString_impl<ToString_base>::eval(OtxContext& context) const {
    return convert(term(), context, &COtxValue::ToString);
}

template <>
COtxValue ToByteField_impl<ToByteField_base>::eval(OtxContext& context) const {
    return convert(term(), context, &COtxValue::ToByteField);
}

}  // namespace otxns
