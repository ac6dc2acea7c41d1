// An element of an enumeration that a document declares.
#include <otx/value/COtxEnumerationItem.h>

#include <otx/value/COtxMap.h>
#include <otx/value/IString.h>
#include <otx/value/Json.h>

#include "ContainerBehaviour.h"
#include "CopyMap.h"
#include "Descent.h"
#include "JsonWriter.h"
#include "Make.h"
#include "NativeBehaviour.h"
#include "TextValues.h"

namespace otx {

namespace {

class EnumerationItemBehaviour final : public NativeBehaviour<EnumerationItemBehaviour> {
public:
    EnumerationItemBehaviour(const COtxValue& type, const COtxValue& name, const COtxValue& value)
        : NativeBehaviour(OTX::ValueType::EnumerationItem), typeName_(type.String()), name_(name.String()),
          value_(value) {}
    ~EnumerationItemBehaviour() override { demolish(value_); }

    COtxValue ToBoolean() override { return value_.ToBoolean(); }
    COtxValue ToInteger() override { return value_.ToInteger(); }
    COtxValue ToFloat() override { return value_.ToFloat(); }
    COtxValue ToByteField() override { return value_.ToByteField(); }
    COtxValue ToQuantity() override { return value_.ToQuantity(); }
    COtxValue ToString() override { return makeText(name_); }
    COtxValue ToJSONObject(Value2IdMap& conversion) override {
        if (!conversion.OtxForm()) return makeText(name_);
        const std::map<const std::string, COtxValue> members{
            {"type", makeText(typeName_)}, {"name", makeText(name_)}, {"value", value_}};
        return taggedJson(Type(), COtxMap(members));
    }
    bool Bool() const override { return value_.Bool(); }
    long long Int() const override { return value_.Int(); }
    double Float() const override { return value_.Float(); }
    const char* what() const override { return name_.c_str(); }
    COtxValue Copy(const COtxValue&, OTX::CopyMap& copies) const override {
        return makePlain<EnumerationItemBehaviour>(makeText(typeName_), makeText(name_), copies.copyOf(value_));
    }

    bool equalTo(const COtxValueBehaviour& right) const { return compareWith(right) == 0; }
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const {
        const Descent descent;
        const auto& other = static_cast<const EnumerationItemBehaviour&>(right);
        if (const auto order = typeName_ <=> other.typeName_; order != 0) return order;
        if (const auto order = compareValues(value_, other.value_); order != 0) return order;
        return name_ <=> other.name_;
    }

private:
    const std::string typeName_;
    const std::string name_;
    COtxValue value_;
};

}  // namespace

}  // namespace otx

COtxEnumerationItem::COtxEnumerationItem(const COtxValue& type, const COtxValue& name, const COtxValue& value)
    : COtxValue(otx::makePlain<otx::EnumerationItemBehaviour>(type, name, value)) {}
