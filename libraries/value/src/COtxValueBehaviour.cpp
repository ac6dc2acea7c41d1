// What a behaviour answers when nothing is overridden: mostly a refusal.
#include <otx/value/COtxValueBehaviour.h>

#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Json.h>

#include <ostream>

#include "JsonWriter.h"
#include "Order.h"
#include "Refusal.h"
#include "TypeNames.h"

using otx::refuse;

namespace {

// The text of ToString; false where that refuses.
bool textOf(const COtxValueBehaviour& behaviour, std::string& text) {
    try {
        // ToString changes nothing; it is not const for the sake of the contract.
        text = const_cast<COtxValueBehaviour&>(behaviour).ToString().String();
        return true;
    } catch (const COtxValue&) {
        return false;
    }
}

// Outlives static destruction, since what() hands out the texts.
const char* lastingTypeName(OTX::ValueType type) {
    static thread_local std::string name;
    name = OTX::typeName(type);
    return name.c_str();
}

}  // namespace

bool COtxValueBehaviour::operator==(const COtxValueBehaviour* other) const { return this == other; }

bool COtxValueBehaviour::IsEqual(const COtxValue& right) const {
    return right.GetBehaviourReference() != nullptr && *this == right.GetBehaviourReference().get();
}

bool COtxValueBehaviour::IsNotEqual(const COtxValue& right) const { return !IsEqual(right); }

bool COtxValueBehaviour::IsLessThan(const COtxValue& right) const {
    const COtxValueBehaviour* const other = right.GetBehaviourReference().get();
    if (const auto order = otx::compareFamilies(this, other); order != 0) return order < 0;
    return !(*this == other) && std::less<>()(this, other);
}

bool COtxValueBehaviour::IsLessThanOrEqual(const COtxValue& right) const { return IsLessThan(right) || IsEqual(right); }
bool COtxValueBehaviour::IsGreaterThan(const COtxValue& right) const { return !IsLessThanOrEqual(right); }
bool COtxValueBehaviour::IsGreaterThanOrEqual(const COtxValue& right) const { return !IsLessThan(right); }

COtxValue COtxValueBehaviour::Multiply(const COtxValue& right) { refuse("Multiply", type_, right.Type()); }
COtxValue COtxValueBehaviour::Divide(const COtxValue& right) { refuse("Divide", type_, right.Type()); }
COtxValue COtxValueBehaviour::Add(const COtxValue& right) { refuse("Add", type_, right.Type()); }
COtxValue COtxValueBehaviour::Subtract(const COtxValue& right) { refuse("Subtract", type_, right.Type()); }
COtxValue COtxValueBehaviour::Modulo(const COtxValue& right) { refuse("Modulo", type_, right.Type()); }
COtxValue COtxValueBehaviour::Abs() { refuse("Abs", type_); }

COtxValue COtxValueBehaviour::ToBoolean() { refuse("ToBoolean", type_); }
COtxValue COtxValueBehaviour::ToInteger() { refuse("ToInteger", type_); }
COtxValue COtxValueBehaviour::ToString() { refuse("ToString", type_); }
COtxValue COtxValueBehaviour::ToHexBinaryString() { refuse("ToHexBinaryString", type_); }
COtxValue COtxValueBehaviour::ToFloat() { refuse("ToFloat", type_); }
COtxValue COtxValueBehaviour::ToByteField() { refuse("ToByteField", type_); }
COtxValue COtxValueBehaviour::ToQuantity() { refuse("ToQuantity", type_); }

void COtxValueBehaviour::ToStream(std::ostream& out, int) const {
    std::string text;
    if (!textOf(*this, text)) text = otx::typeMark(type_);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void COtxValueBehaviour::SetOtxJSON(bool on) { otxJson_.store(on, std::memory_order_relaxed); }

COtxValue COtxValueBehaviour::ToJSON() { return COtxString(otx::jsonText(*this)); }

COtxValue COtxValueBehaviour::ToJSONObject(Value2IdMap& conversion) {
    std::string text;
    if (!textOf(*this, text)) text = OTX::typeName(type_);
    COtxString name(std::move(text));
    if (!conversion.OtxForm()) return name;
    return otx::taggedJson(type_, name);
}

COtxValue COtxValueBehaviour::ToJSONObject() {
    Value2IdMap conversion(OtxJSON());
    return ToJSONObject(conversion);
}

bool COtxValueBehaviour::IsContainer() const { return false; }
bool COtxValueBehaviour::IsInt() const { return false; }

bool COtxValueBehaviour::Bool() const { refuse("Bool", type_); }
long long COtxValueBehaviour::Int() const { refuse("Int", type_); }
double COtxValueBehaviour::Float() const { refuse("Float", type_); }
int COtxValueBehaviour::Precision() const { refuse("Precision", type_); }
const OTX::IString& COtxValueBehaviour::IString() const { refuse("String", type_); }
OTX::IMessage& COtxValueBehaviour::IMessage() { refuse("Message", type_); }
OTX::IResult& COtxValueBehaviour::IResult() { refuse("Result", type_); }
const OTX::IResponse& COtxValueBehaviour::IResponse() const { refuse("Response", type_); }
OTX::IParameter& COtxValueBehaviour::IParameter() { refuse("Parameter", type_); }
const OTX::IException& COtxValueBehaviour::IException() const { refuse("Exception", type_); }
OTX::IEventSource& COtxValueBehaviour::IEventSource() { refuse("EventSource", type_); }
const OTX::IEvent& COtxValueBehaviour::IEvent() const { refuse("Event", type_); }
std::vector<COtxValue>& COtxValueBehaviour::List() { refuse("List", type_); }
std::map<COtxValue, COtxValue>& COtxValueBehaviour::Map() { refuse("Map", type_); }
OTX::IByteField& COtxValueBehaviour::ByteField() { refuse("ByteField", type_); }
OTX::IQuantity& COtxValueBehaviour::Quantity() { refuse("Quantity", type_); }
const OTX::IUnit& COtxValueBehaviour::IUnit() const { refuse("Unit", type_); }
OTX::IRequest& COtxValueBehaviour::Request() { refuse("Request", type_); }
OTX::IParameterContainer& COtxValueBehaviour::Container() { refuse("Container", type_); }
OTX::IComChannel& COtxValueBehaviour::ComChannel() { refuse("ComChannel", type_); }
OTX::IDiagService& COtxValueBehaviour::DiagService() { refuse("DiagService", type_); }
OTX::IServiceProviderService& COtxValueBehaviour::ServiceProviderService() { refuse("ServiceProviderService", type_); }
OTX::IServiceProvider& COtxValueBehaviour::ServiceProvider() { refuse("ServiceProvider", type_); }
OTX::IFlashSession& COtxValueBehaviour::FlashSession() { refuse("FlashSession", type_); }
OTX::IComInterface& COtxValueBehaviour::ComInterface() { refuse("ComInterface", type_); }
OTX::IFileHandle& COtxValueBehaviour::FileHandle() { refuse("FileHandle", type_); }
OTX::IFileReadHandle& COtxValueBehaviour::FileReadHandle() { refuse("FileReadHandle", type_); }

const char* COtxValueBehaviour::what() const { return lastingTypeName(type_); }

COtxValue COtxValueBehaviour::Copy(const COtxValue& self, OTX::CopyMap&) const { return self; }
