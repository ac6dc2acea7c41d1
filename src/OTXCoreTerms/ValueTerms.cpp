// The terms that read a variable, with or without a path.
#include <OTXCoreTerms/VariableAccess.h>

namespace otxns {

template <>
COtxValue BooleanValue_impl<BooleanValue_base>::eval(OtxContext& context) const {
    return valueOfVariable(*this, context);
}

template <>
COtxValue ByteFieldValue_impl<ByteFieldValue_base>::eval(OtxContext& context) const {
    return valueOfVariable(*this, context);
}

template <>
COtxValue ExceptionValue_impl<ExceptionValue_base>::eval(OtxContext& context) const {
    return valueOfVariable(*this, context);
}

template <>
COtxValue FloatValue_impl<FloatValue_base>::eval(OtxContext& context) const {
    return valueOfVariable(*this, context);
}

template <>
COtxValue IntegerValue_impl<IntegerValue_base>::eval(OtxContext& context) const {
    return valueOfVariable(*this, context);
}

template <>
COtxValue ListValue_impl<ListValue_base>::eval(OtxContext& context) const {
    return valueOfVariable(*this, context);
}

template <>
COtxValue MapValue_impl<MapValue_base>::eval(OtxContext& context) const {
    return valueOfVariable(*this, context);
}

template <>
COtxValue StringValue_impl<StringValue_base>::eval(OtxContext& context) const {
    return valueOfVariable(*this, context);
}

}  // namespace otxns
