// The Boolean value.
#include <otx/value/COtxBool.h>

#include "ByteFieldValues.h"
#include "Make.h"
#include "NativeBehaviour.h"
#include "NumberValues.h"
#include "TextValues.h"

namespace otx {

namespace {

class BoolBehaviour final : public NativeBehaviour<BoolBehaviour> {
public:
    explicit BoolBehaviour(bool value)
        : NativeBehaviour(OTX::ValueType::Boolean, Native::Boolean, Scalar{.truth = value}) {}

    COtxValue ToBoolean() override { return makeBoolean(scalar().truth); }
    COtxValue ToInteger() override { return makeInteger(scalar().truth ? 1 : 0); }
    COtxValue ToFloat() override { return makeFloat(scalar().truth ? 1 : 0); }
    COtxValue ToString() override { return makeText(what()); }
    COtxValue ToByteField() override { return makeByteField({static_cast<unsigned char>(scalar().truth ? 1 : 0)}); }
    COtxValue ToHexBinaryString() override { return makeText(scalar().truth ? "01" : "00"); }
    COtxValue ToJSONObject(Value2IdMap&) override { return makeBoolean(scalar().truth); }

    bool Bool() const override { return scalar().truth; }
    const char* what() const override { return scalar().truth ? "TRUE" : "FALSE"; }

    bool equalTo(const COtxValueBehaviour& right) const { return scalar().truth == right.Bool(); }
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const { return scalar().truth <=> right.Bool(); }
};

}  // namespace

COtxValue makeBoolean(bool value) { return makePlain<BoolBehaviour>(value); }

}  // namespace otx

COtxBool::COtxBool(bool value) : COtxValue(otx::makeBoolean(value)) {}
