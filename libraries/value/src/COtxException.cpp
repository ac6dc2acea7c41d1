// The OTX exception as a value.
#include <otx/value/COtxException.h>

#include <otx/value/COtxExceptions.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Json.h>

#include <ostream>
#include <tuple>

#include "ExceptionValues.h"
#include "JsonWriter.h"
#include "Make.h"
#include "NativeBehaviour.h"
#include "TextValues.h"

namespace otx {

namespace {

class ExceptionBehaviour final : public NativeBehaviour<ExceptionBehaviour>, public OTX::IException {
public:
    ExceptionBehaviour(OTX::Exceptions_e kind, const std::string& qualifier, const std::string& text)
        : NativeBehaviour(OTX::ValueType::Exception), kind_(kind), qualifier_(qualifier), text_(text) {}

    COtxValue ToString() override { return makeText(text_); }
    void ToStream(std::ostream& out, int) const override {
        out << Name();
        if (!qualifier_.empty()) out << ": " << qualifier_;
        if (!text_.empty()) out << ": " << text_;
    }
    COtxValue ToJSONObject(Value2IdMap& conversion) override {
        if (!conversion.OtxForm()) return makeText(text_);
        const std::map<const std::string, COtxValue> members{
            {"type", makeText(Name())}, {"qualifier", makeText(qualifier_)}, {"text", makeText(text_)}};
        return taggedJson(COtxValueBehaviour::Type(), COtxMap(members));
    }
    const OTX::IException& IException() const override { return *this; }
    const char* what() const override { return text_.empty() ? Name().c_str() : text_.c_str(); }
    COtxValue Copy(const COtxValue&, OTX::CopyMap&) const override { return makeException(kind_, qualifier_, text_); }

    OTX::Exceptions_e Kind() const override { return kind_; }
    const std::string& Name() const override { return COtxExceptions::Name(kind_); }
    const std::string& Qualifier() const override { return qualifier_; }
    const std::string& Text() const override { return text_; }
    const std::type_info& Type() const override { return COtxExceptions::Type(kind_); }

    bool equalTo(const COtxValueBehaviour& right) const { return compareWith(right) == 0; }
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const {
        const OTX::IException& other = right.IException();
        return std::forward_as_tuple(kind_, qualifier_, text_) <=>
               std::forward_as_tuple(other.Kind(), other.Qualifier(), other.Text());
    }

private:
    const OTX::Exceptions_e kind_;
    const std::string qualifier_;
    const std::string text_;
};

}  // namespace

COtxValue makeException(OTX::Exceptions_e kind, const std::string& qualifier, const std::string& text) {
    return makePlain<ExceptionBehaviour>(kind, qualifier, text);
}

}  // namespace otx

COtxException::COtxException(OTX::Exceptions_e kind) : COtxException(kind, std::string(), std::string()) {}
COtxException::COtxException(OTX::Exceptions_e kind, const std::string& text)
    : COtxException(kind, std::string(), text) {}
COtxException::COtxException(OTX::Exceptions_e kind, const std::string& qualifier, const std::string& text)
    : COtxValue(otx::makeException(kind, qualifier, text)) {}
COtxException::COtxException(const std::string& qualifier, const std::string& text)
    : COtxException(OTX::Exceptions_e::UserException, qualifier, text) {}
