// The handle: what it asks its behaviour, and the short ways where the behaviour is the library's own.
#include <otx/value/COtxValue.h>

#include <otx/value/IByteField.h>
#include <otx/value/IString.h>
#include <otx/value/Json.h>

#include <ostream>

#include "ContainerBehaviour.h"
#include "IntBehaviour.h"
#include "Make.h"
#include "NumberValues.h"
#include "TextValues.h"

namespace otx {

namespace {

// Answers for handles without a behaviour.
class EmptyBehaviour final : public COtxValueBehaviour {
public:
    EmptyBehaviour() : COtxValueBehaviour(OTX::ValueType::Empty) {}

    bool IsEqual(const COtxValue& right) const override { return right.Type() == OTX::ValueType::Empty; }
    bool IsLessThan(const COtxValue& right) const override { return right.Type() != OTX::ValueType::Empty; }
    COtxValue ToString() override { return makeText({}); }
    // One object for all empty values: a flag would be everybody's.
    void SetOtxJSON(bool) override {}
    COtxValue ToJSONObject(Value2IdMap&) override { return {}; }

    // Never destroyed, since values in static objects may still ask it.
    static EmptyBehaviour& instance() {
        static EmptyBehaviour* const object = new EmptyBehaviour;
        return *object;
    }
};

}  // namespace

}  // namespace otx

using Native = COtxValueBehaviour::Native;

COtxValueBehaviour& COtxValue::answering() const noexcept {
    return behaviour_ != nullptr ? *behaviour_ : otx::EmptyBehaviour::instance();
}

std::string COtxValue::stringType() const { return OTX::typeName(Type()); }
int COtxValue::Precision() const { return answering().Precision(); }

const OTX::IString& COtxValue::String() const { return answering().IString(); }
OTX::IByteField& COtxValue::ByteField() const { return answering().ByteField(); }

std::vector<COtxValue>& COtxValue::List() const {
    return isNative(Native::List) ? static_cast<otx::ListBehaviour&>(*behaviour_).items : answering().List();
}

std::map<COtxValue, COtxValue>& COtxValue::Map() const {
    return isNative(Native::Map) ? static_cast<otx::MapBehaviour&>(*behaviour_).entries : answering().Map();
}

OTX::IQuantity& COtxValue::Quantity() const { return answering().Quantity(); }
const OTX::IUnit& COtxValue::Unit() const { return answering().IUnit(); }
OTX::IMessage& COtxValue::Message() const { return answering().IMessage(); }
OTX::IResult& COtxValue::Result() const { return answering().IResult(); }
const OTX::IResponse& COtxValue::Response() const { return answering().IResponse(); }
OTX::IParameter& COtxValue::Parameter() const { return answering().IParameter(); }
const OTX::IException& COtxValue::Exception() const { return answering().IException(); }
OTX::IEventSource& COtxValue::EventSource() const { return answering().IEventSource(); }
const OTX::IEvent& COtxValue::Event() const { return answering().IEvent(); }
OTX::IRequest& COtxValue::Request() const { return answering().Request(); }
OTX::IParameterContainer& COtxValue::Container() const { return answering().Container(); }
OTX::IComChannel& COtxValue::ComChannel() const { return answering().ComChannel(); }
OTX::IDiagService& COtxValue::DiagService() const { return answering().DiagService(); }
OTX::IComInterface& COtxValue::ComInterface() const { return answering().ComInterface(); }
OTX::IServiceProvider& COtxValue::ServiceProvider() const { return answering().ServiceProvider(); }
OTX::IServiceProviderService& COtxValue::ServiceProviderService() const {
    return answering().ServiceProviderService();
}
OTX::IFlashSession& COtxValue::FlashSession() const { return answering().FlashSession(); }
OTX::IFileHandle& COtxValue::FileHandle() const { return answering().FileHandle(); }
OTX::IFileReadHandle& COtxValue::FileReadHandle() const { return answering().FileReadHandle(); }
bool COtxValue::IsContainer() const { return answering().IsContainer(); }

// A value that never changes is its own conversion to its own type.
COtxValue COtxValue::ToString() const { return isNative(Native::String) ? *this : answering().ToString(); }
COtxValue COtxValue::ToInteger() const { return isNative(Native::Integer) ? *this : answering().ToInteger(); }
COtxValue COtxValue::ToFloat() const { return isNative(Native::Float) ? *this : answering().ToFloat(); }
COtxValue COtxValue::ToBoolean() const { return isNative(Native::Boolean) ? *this : answering().ToBoolean(); }
COtxValue COtxValue::ToByteField() const { return answering().ToByteField(); }
COtxValue COtxValue::ToQuantity() const { return answering().ToQuantity(); }

COtxValue COtxValue::ToJSON() const { return answering().ToJSON(); }
void COtxValue::SetOTXJSON(bool on) const { answering().SetOtxJSON(on); }

COtxValue COtxValue::Abs() const { return answering().Abs(); }

COtxValue COtxValue::operator+(const COtxValue& right) const {
    long long sum = 0;
    if (bothIntegers(right) && !__builtin_add_overflow(integer(), right.integer(), &sum)) [[likely]]
        return otx::makePlain<otx::IntegerBehaviour>(sum, COtxInt::Decimal);
    return answering().Add(right);
}

COtxValue COtxValue::operator-(const COtxValue& right) const {
    long long difference = 0;
    if (bothIntegers(right) && !__builtin_sub_overflow(integer(), right.integer(), &difference)) [[likely]]
        return otx::makePlain<otx::IntegerBehaviour>(difference, COtxInt::Decimal);
    return answering().Subtract(right);
}

COtxValue COtxValue::operator*(const COtxValue& right) const {
    long long product = 0;
    if (bothIntegers(right) && !__builtin_mul_overflow(integer(), right.integer(), &product)) [[likely]]
        return otx::makePlain<otx::IntegerBehaviour>(product, COtxInt::Decimal);
    return answering().Multiply(right);
}

// By zero and by minus one there is more to check.
COtxValue COtxValue::operator/(const COtxValue& right) const {
    if (bothIntegers(right) && right.integer() > 0) [[likely]]
        return otx::makePlain<otx::IntegerBehaviour>(integer() / right.integer(), COtxInt::Decimal);
    return answering().Divide(right);
}

COtxValue COtxValue::operator%(const COtxValue& right) const {
    if (bothIntegers(right) && right.integer() > 0) [[likely]]
        return otx::makePlain<otx::IntegerBehaviour>(integer() % right.integer(), COtxInt::Decimal);
    return answering().Modulo(right);
}

bool COtxValue::isEqual(const COtxValue& right) const { return answering().IsEqual(right); }
bool COtxValue::isLess(const COtxValue& right) const { return answering().IsLessThan(right); }
bool COtxValue::isLessOrEqual(const COtxValue& right) const { return answering().IsLessThanOrEqual(right); }
bool COtxValue::isGreater(const COtxValue& right) const { return answering().IsGreaterThan(right); }
bool COtxValue::isGreaterOrEqual(const COtxValue& right) const { return answering().IsGreaterThanOrEqual(right); }

const char* COtxValue::what() const noexcept {
    try {
        return answering().what();
    } catch (const std::exception&) {
        return "COtxValue";
    }
}

std::ostream& operator<<(std::ostream& out, const COtxValue& value) {
    if (value.GetBehaviourReference() != nullptr) value.GetBehaviourReference()->ToStream(out, 0);
    return out;
}
