// The Unit value.
#include <otx/value/COtxUnit.h>

#include "JsonWriter.h"
#include "Make.h"
#include "NativeBehaviour.h"
#include "TextValues.h"

#include <otx/value/Json.h>

namespace otx {

namespace {

class UnitBehaviour final : public NativeBehaviour<UnitBehaviour>, public OTX::IUnit {
public:
    explicit UnitBehaviour(const std::string& name) : NativeBehaviour(OTX::ValueType::Unit), name_(name) {}

    COtxValue ToString() override { return makeText(name_); }
    COtxValue ToJSONObject(Value2IdMap& conversion) override {
        return conversion.OtxForm() ? taggedJson(Type(), makeText(name_)) : makeText(name_);
    }
    const OTX::IUnit& IUnit() const override { return *this; }
    const char* what() const override { return name_.c_str(); }
    COtxValue Copy(const COtxValue&, OTX::CopyMap&) const override { return COtxUnit(name_); }

    const std::string& Name() const override { return name_; }

    bool equalTo(const COtxValueBehaviour& right) const { return name_ == right.IUnit().Name(); }
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const { return name_ <=> right.IUnit().Name(); }

private:
    const std::string name_;
};

}  // namespace

}  // namespace otx

COtxUnit::COtxUnit() : COtxUnit(std::string()) {}
COtxUnit::COtxUnit(const std::string& name) : COtxValue(otx::makePlain<otx::UnitBehaviour>(name)) {}
