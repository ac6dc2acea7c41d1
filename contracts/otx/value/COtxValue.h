// The handle in which all OTX data travels.
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValueBehaviour.h>
#include <otx/value/IByteField.h>
#include <otx/value/IString.h>

#include <exception>
#include <iosfwd>
#include <memory>
#include <string>
#include <utility>

// A shared reference to a behaviour, and nothing else. Copies of a handle see each other's changes to a list, map or byte
// field; OTX::DeepCopy makes an independent value. Moving leaves the source empty. The empty value has no behaviour and
// type 0. Since it derives from std::exception, any value can be thrown and caught; an OTX exception is thrown as a
// COtxException and caught as COtxValue.
//
// Threads: different handles on one behaviour may be used on any threads; one handle that is written while others read it
// needs a lock (OtxVariable has one). The content of lists, maps and byte fields isn't locked.
//
// Operations go to the behaviour of this (for operators: the left) value. What it doesn't support throws COtxException of
// kind 5 (TypeMismatchException) with a text that names the operation and the type; docs/values.md has the tables.
class OTX_API COtxValue : public std::exception {
public:
    COtxValue() noexcept = default;
    explicit COtxValue(const std::shared_ptr<COtxValueBehaviour>& behaviour) noexcept : behaviour_(behaviour) {}
    explicit COtxValue(std::shared_ptr<COtxValueBehaviour>&& behaviour) noexcept : behaviour_(std::move(behaviour)) {}

    OTX::ValueType Type() const noexcept {
        return behaviour_ != nullptr ? behaviour_->type_ : OTX::ValueType::Empty;
    }
    // The type's name, for log lines and messages: OTX::typeName(Type()).
    std::string stringType() const;
    // The behaviour; a null pointer for the empty value.
    const std::shared_ptr<COtxValueBehaviour>& GetBehaviourReference() const noexcept { return behaviour_; }

    bool Bool() const {
        return isNative(COtxValueBehaviour::Native::Boolean) ? behaviour_->scalar_.truth : answering().Bool();
    }
    long long Int() const {
        return isNative(COtxValueBehaviour::Native::Integer) ? behaviour_->scalar_.integer : answering().Int();
    }
    double Float() const {
        return isNative(COtxValueBehaviour::Native::Float) ? behaviour_->scalar_.real : answering().Float();
    }
    // The display precision of a Float or Quantity.
    int Precision() const;

    // The data and interfaces behind the value. The references live as long as the value's behaviour.
    const OTX::IString& String() const;
    OTX::IByteField& ByteField() const;
    std::vector<COtxValue>& List() const;
    std::map<COtxValue, COtxValue>& Map() const;
    OTX::IQuantity& Quantity() const;
    const OTX::IUnit& Unit() const;
    OTX::IMessage& Message() const;
    OTX::IResult& Result() const;
    const OTX::IResponse& Response() const;
    OTX::IParameter& Parameter() const;
    const OTX::IException& Exception() const;
    OTX::IEventSource& EventSource() const;
    const OTX::IEvent& Event() const;
    OTX::IRequest& Request() const;
    OTX::IParameterContainer& Container() const;
    OTX::IComChannel& ComChannel() const;
    OTX::IDiagService& DiagService() const;
    OTX::IComInterface& ComInterface() const;
    OTX::IServiceProvider& ServiceProvider() const;
    OTX::IServiceProviderService& ServiceProviderService() const;
    OTX::IFlashSession& FlashSession() const;
    OTX::IFileHandle& FileHandle() const;
    OTX::IFileReadHandle& FileReadHandle() const;
    // Whether Container() answers.
    bool IsContainer() const;

    COtxValue ToString() const;
    COtxValue ToInteger() const;
    COtxValue ToFloat() const;
    COtxValue ToBoolean() const;
    COtxValue ToByteField() const;
    COtxValue ToQuantity() const;

    // The value's JSON text (RFC 8259, UTF-8) as a String.
    COtxValue ToJSON() const;
    // Chooses between the plain and the OTX form of JSON for this value, with all that it holds. The flag belongs to the
    // behaviour, so all copies of the handle see it.
    void SetOTXJSON(bool on) const;

    COtxValue Abs() const;
    COtxValue operator+(const COtxValue& right) const;
    COtxValue operator-(const COtxValue& right) const;
    COtxValue operator*(const COtxValue& right) const;
    COtxValue operator/(const COtxValue& right) const;
    COtxValue operator%(const COtxValue& right) const;

    // Values of different families (docs/values.md) are unequal and ordered by family; the comparisons of the library's
    // types refuse nothing, except that values nested too deeply for the stack raise kind 2. `<` is a strict weak order.
    bool operator==(const COtxValue& right) const {
        return bothIntegers(right) ? integer() == right.integer() : isEqual(right);
    }
    bool operator!=(const COtxValue& right) const {
        return bothIntegers(right) ? integer() != right.integer() : !isEqual(right);
    }
    bool operator<(const COtxValue& right) const {
        return bothIntegers(right) ? integer() < right.integer() : isLess(right);
    }
    bool operator<=(const COtxValue& right) const {
        return bothIntegers(right) ? integer() <= right.integer() : isLessOrEqual(right);
    }
    bool operator>(const COtxValue& right) const {
        return bothIntegers(right) ? integer() > right.integer() : isGreater(right);
    }
    bool operator>=(const COtxValue& right) const {
        return bothIntegers(right) ? integer() >= right.integer() : isGreaterOrEqual(right);
    }

    // The text: that of an exception or string itself, a number's digits, else the type's name. Lives as long as the
    // value and, for a number, until the thread's next call.
    const char* what() const noexcept override;

private:
    bool isNative(COtxValueBehaviour::Native kind) const noexcept {
        return behaviour_ != nullptr && behaviour_->native_ == kind;
    }
    bool bothIntegers(const COtxValue& right) const noexcept {
        return isNative(COtxValueBehaviour::Native::Integer) && right.isNative(COtxValueBehaviour::Native::Integer);
    }
    long long integer() const noexcept { return behaviour_->scalar_.integer; }

    // What variables do with the value that they hold.
    friend class OtxVariable;
    void exchange(COtxValue& other) noexcept { behaviour_.swap(other.behaviour_); }
    // Whether this is the only handle of a decimal Integer with no wish for the OTX form of JSON, so that another such Integer
    // in its place can't be told from it being changed.
    bool isSoleInteger() const noexcept;
    void overwriteSoleInteger(long long number) noexcept { behaviour_->scalar_.integer = number; }

    // The behaviour, or the one that answers for the empty value.
    COtxValueBehaviour& answering() const noexcept;

    bool isEqual(const COtxValue& right) const;
    bool isLess(const COtxValue& right) const;
    bool isLessOrEqual(const COtxValue& right) const;
    bool isGreater(const COtxValue& right) const;
    bool isGreaterOrEqual(const COtxValue& right) const;

    std::shared_ptr<COtxValueBehaviour> behaviour_;
};

// Writes the form for logs and people; never throws because of the value, and uses no locale.
OTX_API std::ostream& operator<<(std::ostream& out, const COtxValue& value);
