// The initial values of the data types: `init` evaluated, else the type's default.
#include <OTXCoreTypes/InitialValue.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxByteField.h>
#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>

namespace otxns {

template <>
COtxValue Boolean_impl<Boolean_base>::eval(OtxContext& context) const {
    return initialValue(*this, context, [] { return COtxBool(false); });
}

template <>
COtxValue Integer_impl<Integer_base>::eval(OtxContext& context) const {
    return initialValue(*this, context, [] { return COtxInt(0); });
}

template <>
COtxValue Float_impl<Float_base>::eval(OtxContext& context) const {
    return initialValue(*this, context, [] { return COtxFloat(0.0); });
}

template <>
COtxValue String_impl<String_base>::eval(OtxContext& context) const {
    return initialValue(*this, context, [] { return COtxString(); });
}

template <>
COtxValue ByteField_impl<ByteField_base>::eval(OtxContext& context) const {
    return initialValue(*this, context, [] { return COtxByteField(); });
}

template <>
COtxValue List_impl<List_base>::eval(OtxContext& context) const {
    return initialValue(*this, context, [] { return COtxList(); });
}

template <>
COtxValue Map_impl<Map_base>::eval(OtxContext& context) const {
    return initialValue(*this, context, [] { return COtxMap(); });
}

template <>
COtxValue Exception_impl<Exception_base>::eval(OtxContext&) const {
    return COtxValue();
}

template <>
COtxValue UserException_impl<UserException_base>::eval(OtxContext& context) const {
    return initialValue(*this, context, [] { return COtxValue(); });
}

}  // namespace otxns
