// The conversion terms.
#include <OTXCoreTerms/Evaluate.h>

namespace otxns {

template <>
COtxValue ToBoolean_impl<ToBoolean_base>::eval(OtxContext& context) const {
    return evaluate(term(), context).ToBoolean();
}

template <>
COtxValue ToInteger_impl<ToInteger_base>::eval(OtxContext& context) const {
    return evaluate(term(), context).ToInteger();
}

template <>
COtxValue ToFloat_impl<ToFloat_base>::eval(OtxContext& context) const {
    return evaluate(term(), context).ToFloat();
}

template <>
COtxValue ToString_impl<ToString_base>::eval(OtxContext& context) const {
    return evaluate(term(), context).ToString();
}

template <>
COtxValue ToByteField_impl<ToByteField_base>::eval(OtxContext& context) const {
    return evaluate(term(), context).ToByteField();
}

}  // namespace otxns
