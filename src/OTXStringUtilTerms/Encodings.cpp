// The terms that turn strings into bytes and back, and the data type of encodings.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXCoreTypes/InitialValue.h>
#include <otx/value/COtxByteField.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxStringEncoding.h>
#include <schema/StringUtil.h>

namespace StringUtil {

namespace {

COtxStringEncoding::Encoding number(const COtxValue& encoding) {
    return static_cast<COtxStringEncoding::Encoding>(encoding.Int());
}

}  // namespace

OTX_TERM(Encode, otxns::evaluateTwo(string(), encoding(), context, [](const COtxValue& text, const COtxValue& form) {
             return COtxByteField(text.String(), number(form));
         }))
OTX_TERM(Decode, otxns::evaluateTwo(bytes(), encoding(), context, [&](const COtxValue& field, const COtxValue& form) {
             return otxns::lookInto(context, [&] { return COtxString(field.ByteField(), number(form)); });
         }))
OTX_TERM(EncodingLiteral, COtxStringEncoding(static_cast<const std::string&>(value())))
OTX_TERM(EncodingValue, otxns::valueOfVariable(*this, context))

// Without an initial value it is a string and no encoding; this is meant.
OTX_TERM(Encoding, otxns::initialValue(*this, context, []() -> COtxValue { return COtxString(); }))

}  // namespace StringUtil
