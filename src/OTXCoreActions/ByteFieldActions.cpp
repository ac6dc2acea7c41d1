// The actions that change a byte field in place. The orders of evaluation are meant as they stand.
#include <OTXCoreTerms/Evaluate.h>
#include <otx/value/IByteField.h>

#include <mutex>

namespace otxns {

namespace {

template <class Shift>
void shift(const Shift& action, OtxContext& context, void (OTX::IByteField::*operation)(int)) {
    const COtxValue target = action.byteField().read(context);
    OTX::IByteField& field = target.ByteField();
    const int count = evaluateInt32(action.positions(), context);
    const std::lock_guard content(context.ContentLock());
    (field.*operation)(count);
}

}  // namespace

// The variable is read anew for each operand.
template <>
void AppendByteField_impl<AppendByteField_base>::exec(OtxContext& context) const {
    for (const ByteFieldTerm& term : otherByteField()) {
        const COtxValue target = byteField().read(context);
        OTX::IByteField& field = target.ByteField();
        const COtxValue value = evaluate(term, context);
        const std::lock_guard content(context.ContentLock());
        field.Append(value);
    }
}

template <>
void ReplaceSubByteField_impl<ReplaceSubByteField_base>::exec(OtxContext& context) const {
    const COtxValue replacement = evaluate(newByteField(), context);
    const int place = evaluateInt32(index(), context);
    const COtxValue target = byteField().read(context);
    OTX::IByteField& field = target.ByteField();
    const std::lock_guard content(context.ContentLock());
    field.ReplaceSubByteField(replacement, place);
}

template <>
void SetBit_impl<SetBit_base>::exec(OtxContext& context) const {
    const COtxValue target = byteField().read(context);
    OTX::IByteField& field = target.ByteField();
    const COtxValue bit = evaluate(value(), context);
    const int bitPosition = evaluateInt32(position(), context);
    const int byteIndex = evaluateInt32(index(), context);
    const bool isSet = bit.Bool();
    const std::lock_guard content(context.ContentLock());
    field.SetBit(byteIndex, bitPosition, isSet);
}

template <>
void ShiftLeft_impl<ShiftLeft_base>::exec(OtxContext& context) const {
    shift(*this, context, &OTX::IByteField::ShiftLeft);
}

template <>
void ShiftRight_impl<ShiftRight_base>::exec(OtxContext& context) const {
    shift(*this, context, &OTX::IByteField::ShiftRight);
}

}  // namespace otxns
