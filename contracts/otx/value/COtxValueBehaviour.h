// The behaviour object behind a value: it holds the data and answers every operation.
#pragma once

#include <otx/Export.h>
#include <otx/value/ValueType.h>

#include <atomic>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <vector>

class COtxValue;
class Value2IdMap;

namespace OTX {

class IByteField;
class IComChannel;
class IComInterface;
class IDiagService;
class IEvent;
class IEventSource;
class IException;
class IFileHandle;
class IFileReadHandle;
class IFlashSession;
class IMessage;
class IParameter;
class IParameterContainer;
class IQuantity;
class IRequest;
class IResponse;
class IResult;
class IServiceProvider;
class IServiceProviderService;
class IString;
class IUnit;
class CopyMap;

}  // namespace OTX

// Root of all behaviours, those of the library and those that hosts write for their handles. A host derives from it,
// passes its type number to the constructor, overrides what its values can do, and makes a value of a shared pointer to
// it: COtxValue(std::make_shared<MyChannel>()).
//
// Every operation that isn't overridden refuses: it throws a COtxException of kind 5 (TypeMismatchException) whose text
// names the operation and the type. The exceptions to that are told with the operations below.
//
// The order of the virtual operations is part of the contract: hosts are built apart from the library. Owned by shared
// pointers, whose count is safe on any thread; the content is not locked.
//
// shared_from_this() works for behaviours made with std::make_shared. The library's plain data (Boolean to Map) doesn't
// fill it, because that would cost three atomic operations a value.
class OTX_API COtxValueBehaviour : public std::enable_shared_from_this<COtxValueBehaviour> {
public:
    COtxValueBehaviour(const COtxValueBehaviour&) = delete;
    COtxValueBehaviour& operator=(const COtxValueBehaviour&) = delete;
    virtual ~COtxValueBehaviour() = default;

    // The comparisons never refuse. By default an object equals itself only; the order is by family of types, then by
    // address, so that any value can be a key.
    virtual bool operator==(const COtxValueBehaviour* other) const;
    virtual bool IsEqual(const COtxValue& right) const;
    virtual bool IsNotEqual(const COtxValue& right) const;
    virtual bool IsLessThan(const COtxValue& right) const;
    virtual bool IsLessThanOrEqual(const COtxValue& right) const;
    virtual bool IsGreaterThan(const COtxValue& right) const;
    virtual bool IsGreaterThanOrEqual(const COtxValue& right) const;

    virtual COtxValue Multiply(const COtxValue& right);
    virtual COtxValue Divide(const COtxValue& right);
    virtual COtxValue Add(const COtxValue& right);
    virtual COtxValue Subtract(const COtxValue& right);
    virtual COtxValue Modulo(const COtxValue& right);
    virtual COtxValue Abs();

    virtual COtxValue ToBoolean();
    virtual COtxValue ToInteger();
    virtual COtxValue ToString();
    virtual COtxValue ToHexBinaryString();
    virtual COtxValue ToFloat();
    virtual COtxValue ToByteField();
    virtual COtxValue ToQuantity();

    // Writes the form for logs and people. The depth is that at which the value stands in another one, 0 for the
    // outermost: a string stands there without quotes. By default the text of ToString, or the type's name in angle
    // brackets where that refuses; never refuses.
    virtual void ToStream(std::ostream& out, int depth) const;

    // Chooses the OTX form of JSON for this value and all within it. Never refuses; safe on any thread.
    virtual void SetOtxJSON(bool on);
    // The JSON text as a String.
    virtual COtxValue ToJSON();
    // The value as something that JSON carries natively: the empty value, a Boolean, Integer, finite Float, String, List,
    // or Map with String keys. Only the outermost level counts; what it holds is converted in its turn. The first form is
    // for a value within others, whose wish for the OTX form the conversion knows. By default an object with the type's
    // name as key in the OTX form, and in both the text of ToString, or the type's name where that refuses.
    virtual COtxValue ToJSONObject(Value2IdMap& conversion);
    virtual COtxValue ToJSONObject();

    // False by default.
    virtual bool IsContainer() const;
    virtual bool IsInt() const;

    virtual bool Bool() const;
    virtual long long Int() const;
    virtual double Float() const;
    virtual int Precision() const;
    virtual const OTX::IString& IString() const;
    virtual OTX::IMessage& IMessage();
    virtual OTX::IResult& IResult();
    virtual const OTX::IResponse& IResponse() const;
    virtual OTX::IParameter& IParameter();
    virtual const OTX::IException& IException() const;
    virtual OTX::IEventSource& IEventSource();
    virtual const OTX::IEvent& IEvent() const;
    virtual std::vector<COtxValue>& List();
    virtual std::map<COtxValue, COtxValue>& Map();
    virtual OTX::IByteField& ByteField();
    virtual OTX::IQuantity& Quantity();
    virtual const OTX::IUnit& IUnit() const;
    virtual OTX::IRequest& Request();
    virtual OTX::IParameterContainer& Container();
    virtual OTX::IComChannel& ComChannel();
    virtual OTX::IDiagService& DiagService();
    virtual OTX::IServiceProviderService& ServiceProviderService();
    virtual OTX::IServiceProvider& ServiceProvider();
    virtual OTX::IFlashSession& FlashSession();
    virtual OTX::IComInterface& ComInterface();
    virtual OTX::IFileHandle& FileHandle();
    virtual OTX::IFileReadHandle& FileReadHandle();

    // The text, for catch clauses of the host language. The type's name by default; never refuses.
    virtual const char* what() const;

    // A value for OTX::DeepCopy that shares nothing mutable with this one. By default the value itself, since a handle
    // stands for one object outside. `self` is the value being copied; the map finds copies that were made already.
    virtual COtxValue Copy(const COtxValue& self, OTX::CopyMap& copies) const;

    OTX::ValueType Type() const noexcept { return type_; }
    bool OtxJSON() const noexcept { return otxJson_.load(std::memory_order_relaxed); }

    // Which of the library's own classes this is, so that the library can reach its data without a virtual call. None for
    // all others, derived classes of the library's own included.
    enum class Native : std::uint8_t { None, Boolean, Integer, Float, String, ByteField, List, Map };
    Native NativeKind() const noexcept { return native_; }

protected:
    // What Bool(), Int() or Float() answers.
    union Scalar {
        long long integer;
        double real;
        bool truth;
    };

    explicit COtxValueBehaviour(OTX::ValueType type) noexcept : type_(type) {}
    // Only for the library's own classes: COtxValue reads the scalar of a native kind without asking the object.
    COtxValueBehaviour(OTX::ValueType type, Native native, Scalar scalar) noexcept
        : type_(type), native_(native), scalar_(scalar) {}

    Scalar scalar() const noexcept { return scalar_; }

private:
    friend class COtxValue;

    const OTX::ValueType type_;
    std::atomic<bool> otxJson_{false};
    const Native native_ = Native::None;
    // Changes only in an Integer that nobody but one variable holds (OtxVariable::StoreInteger).
    Scalar scalar_{0};
};
