// The Integer value, and the behaviour on which integer-backed enumerations build.
#pragma once

#include <otx/value/COtxValue.h>
#include <otx/value/IntegerCoding.h>

#include <vector>

// A signed 64-bit integer.
class OTX_API COtxInt : public COtxValue {
public:
    // How a host may show the number; neither the arithmetic nor any conversion depends on it. Documents make Decimal
    // integers, DecodeInteger makes Hexadecimal ones.
    enum Radix : int { Binary = 0, Octal = 1, Decimal = 2, Hexadecimal = 3 };

    explicit COtxInt(long long value, Radix radix = Decimal);

    // Decodes an integer. `bits` is its width; of more bytes than that takes, the most significant are left out. Throws
    // kind 2 when the width is not between 1 and the bytes' own, or the number is beyond 64 bits.
    COtxInt(const std::vector<unsigned char>& bytes, int bits, OTX::Encoding encoding, OTX::Endianness endianness,
            Radix radix);
};

// The behaviour of integers. A subclass passes another type number and overrides ToString with its enumerator's name; in
// comparison and arithmetic it stays an integer. Its JSON is the text of its ToString. A copy for OTX::DeepCopy is of the
// library's own class, with the same type, number and text; a subclass that has more than that overrides Copy too.
class OTX_API COtxIntBehaviour : public COtxValueBehaviour {
public:
    COtxIntBehaviour(long long value, COtxInt::Radix radix, OTX::ValueType type);
    ~COtxIntBehaviour() override = default;

    bool operator==(const COtxValueBehaviour* other) const override;
    bool IsEqual(const COtxValue& right) const override;
    bool IsLessThan(const COtxValue& right) const override;

    COtxValue Multiply(const COtxValue& right) override;
    COtxValue Divide(const COtxValue& right) override;
    COtxValue Add(const COtxValue& right) override;
    COtxValue Subtract(const COtxValue& right) override;
    COtxValue Modulo(const COtxValue& right) override;
    COtxValue Abs() override;

    COtxValue ToBoolean() override;
    COtxValue ToInteger() override;
    COtxValue ToString() override;
    COtxValue ToHexBinaryString() override;
    COtxValue ToFloat() override;
    COtxValue ToByteField() override;
    COtxValue ToQuantity() override;

    COtxValue ToJSONObject(Value2IdMap& conversion) override;
    COtxValue ToJSONObject() override;

    bool IsInt() const override;
    long long Int() const override;
    const char* what() const override;
    COtxValue Copy(const COtxValue& self, OTX::CopyMap& copies) const override;

    COtxInt::Radix Radix() const noexcept { return radix_; }

protected:
    // Only for the library's own Integer.
    COtxIntBehaviour(long long value, COtxInt::Radix radix, Native native);

private:
    const COtxInt::Radix radix_;
};
