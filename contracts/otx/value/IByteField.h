// The operations of a ByteField value.
#pragma once

#include <otx/Export.h>

#include <vector>

class COtxValue;

namespace OTX {

// Behind COtxValue::ByteField(); it is also the std::vector of the bytes itself. Index 0 is the first byte, position 0 a
// byte's least significant bit; indexes outside the field throw kind 2. The in-place operations change the value for all
// handles on it and take no lock.
class OTX_API IByteField : public virtual std::vector<unsigned char> {
public:
    virtual COtxValue Not() const = 0;
    // The operand passes through ToByteField. Fields of different lengths are aligned at their last byte; the shorter gets
    // zero bytes in front.
    virtual COtxValue And(const COtxValue& right) const = 0;
    virtual COtxValue Or(const COtxValue& right) const = 0;
    virtual COtxValue Xor(const COtxValue& right) const = 0;
    virtual void SetBit(int index, int position, bool value) = 0;
    virtual bool GetBit(int index, int position) const = 0;
    // Sets every byte to zero; the length stays.
    virtual void Clear() = 0;
    // The field as one big-endian number of fixed length; zeros come in. A negative count throws kind 2.
    virtual void ShiftLeft(int positions) = 0;
    virtual void ShiftRight(int positions) = 0;
    // Writes the replacement, which must be a ByteField (else kind 5), over the bytes from `index` on; past the end it
    // lengthens the field.
    virtual void ReplaceSubByteField(const COtxValue& replacement, int index) = 0;
    // Of a ByteField only (else kind 5).
    virtual void Append(const COtxValue& other) = 0;

protected:
    IByteField() = default;
    ~IByteField() = default;
};

}  // namespace OTX
