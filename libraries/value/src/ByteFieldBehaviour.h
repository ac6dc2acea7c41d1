// The library's own ByteField.
#pragma once

#include <otx/value/IByteField.h>

#include <vector>

#include "NativeBehaviour.h"

namespace otx {

class ByteFieldBehaviour final : public NativeBehaviour<ByteFieldBehaviour>, public OTX::IByteField {
public:
    explicit ByteFieldBehaviour(std::vector<unsigned char>&& bytes);

    COtxValue ToBoolean() override;
    COtxValue ToInteger() override;
    COtxValue ToString() override;
    COtxValue ToHexBinaryString() override;
    COtxValue ToFloat() override;
    COtxValue ToByteField() override;
    COtxValue ToJSONObject(Value2IdMap& conversion) override;
    OTX::IByteField& ByteField() override { return *this; }
    const char* what() const override;
    COtxValue Copy(const COtxValue& self, OTX::CopyMap& copies) const override;

    COtxValue Not() const override;
    COtxValue And(const COtxValue& right) const override;
    COtxValue Or(const COtxValue& right) const override;
    COtxValue Xor(const COtxValue& right) const override;
    void SetBit(int index, int position, bool value) override;
    bool GetBit(int index, int position) const override;
    void Clear() override;
    void ShiftLeft(int positions) override;
    void ShiftRight(int positions) override;
    void ReplaceSubByteField(const COtxValue& replacement, int index) override;
    void Append(const COtxValue& other) override;

    bool equalTo(const COtxValueBehaviour& right) const;
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const;

private:
    std::size_t checkedIndex(const char* operation, int index, int position) const;
};

}  // namespace otx
