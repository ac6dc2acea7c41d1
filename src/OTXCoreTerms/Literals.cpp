// The literals. Each evaluation makes a fresh value.
#include <otx/value/COtxBool.h>
#include <otx/value/COtxByteField.h>
#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>
#include <schema/core.h>

namespace otxns {

template <>
COtxValue BooleanLiteral_impl<BooleanLiteral_base>::eval(OtxContext&) const {
    return COtxBool(value());
}

template <>
COtxValue IntegerLiteral_impl<IntegerLiteral_base>::eval(OtxContext&) const {
    return COtxInt(value());
}

template <>
COtxValue FloatLiteral_impl<FloatLiteral_base>::eval(OtxContext&) const {
    return COtxFloat(value());
}

template <>
COtxValue StringLiteral_impl<StringLiteral_base>::eval(OtxContext&) const {
    return COtxString(static_cast<const std::string&>(value()));
}

template <>
COtxValue ByteFieldLiteral_impl<ByteFieldLiteral_base>::eval(OtxContext&) const {
    const schema::hex_binary& bytes = value();
    return COtxByteField(reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<int>(bytes.size()),
                         OTX::Encoding::None, -1);
}

}  // namespace otxns
