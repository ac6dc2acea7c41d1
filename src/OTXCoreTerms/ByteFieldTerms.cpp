// The terms that read byte fields and combine them. The orders of evaluation are meant as they stand.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxByteField.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxInt.h>
#include <otx/value/IByteField.h>
#include <velkotx/Exceptions.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace otxns {

namespace {

using Bytes = std::vector<unsigned char>;
using Combination = COtxValue (OTX::IByteField::*)(const COtxValue& right) const;

// The first operand must be a byte field; the second is converted.
template <class Operands>
COtxValue combine(const Operands& operands, OtxContext& context, const char* termName, Combination combination) {
    // The text is meant for more than two operands too.
    if (operands.size() != 2) throw velkotx::OTXRuntimeException(termName, "Not enough terms");
    return evaluateTwo(operands[0], operands[1], context, [&](const COtxValue& left, const COtxValue& right) {
        return lookInto(context, [&] { return (left.ByteField().*combination)(right.ToByteField()); });
    });
}

// The bytes from index on. Throws OutOfBoundsException.
COtxValue subField(const Bytes& bytes, long long index, long long count) {
    const auto size = static_cast<long long>(bytes.size());
    // The size as the last index is meant.
    if (index < 0 || index >= size)
        throw COtxException(OTX::Exceptions_e::OutOfBoundsException,
                            "Start index is outside the bytefield range, start index is " + std::to_string(index) +
                                ", last available index is " + std::to_string(size));
    if (count > size - index)
        throw COtxException(OTX::Exceptions_e::OutOfBoundsException,
                            "Requested SubByteField exceeds original byte field size, final requested index is " +
                                std::to_string(static_cast<unsigned long long>(index) +
                                               static_cast<unsigned long long>(count)) +
                                " ByteField size is " + std::to_string(size));
    // A negative count isn't an OTX exception but a failure of the run.
    if (count < 0) throw std::length_error("vector too long");
    return COtxByteField(Bytes(bytes.begin() + index, bytes.begin() + index + count));
}

}  // namespace

template <>
COtxValue ByteFieldGetSize_impl<ByteFieldGetSize_base>::eval(OtxContext& context) const {
    const COtxValue field = evaluate(byteField(), context);
    return COtxInt(static_cast<long long>(lookInto(context, [&] { return field.ByteField().size(); })));
}

template <>
COtxValue GetBit_impl<GetBit_base>::eval(OtxContext& context) const {
    const COtxValue field = evaluate(byteField(), context);
    const int bitPosition = evaluateInt32(position(), context);
    const int byteIndex = evaluateInt32(index(), context);
    return COtxBool(lookInto(context, [&] { return field.ByteField().GetBit(byteIndex, bitPosition); }));
}

template <>
COtxValue SubByteField_impl<SubByteField_base>::eval(OtxContext& context) const {
    const COtxValue field = evaluate(byteField(), context);
    const long long first = evaluateInteger(index(), context);
    const long long number = evaluateInteger(count(), context);
    return lookInto(context, [&] { return subField(field.ByteField(), first, number); });
}

template <>
COtxValue BitwiseAnd_impl<BitwiseAnd_base>::eval(OtxContext& context) const {
    return combine(byteField(), context, "BitwiseAnd", &OTX::IByteField::And);
}

template <>
COtxValue BitwiseOr_impl<BitwiseOr_base>::eval(OtxContext& context) const {
    return combine(byteField(), context, "BitwiseOr", &OTX::IByteField::Or);
}

template <>
COtxValue BitwiseXor_impl<BitwiseXor_base>::eval(OtxContext& context) const {
    return combine(byteField(), context, "BitwiseXor", &OTX::IByteField::Xor);
}

template <>
COtxValue BitwiseNot_impl<BitwiseNot_base>::eval(OtxContext& context) const {
    const COtxValue field = evaluate(byteField(), context);
    return lookInto(context, [&] { return field.ByteField().Not(); });
}

}  // namespace otxns
