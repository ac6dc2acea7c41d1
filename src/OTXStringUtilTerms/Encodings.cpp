// The terms that turn strings into bytes and back, and the data type of encodings.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXCoreTypes/InitialValue.h>
#include <otx/value/COtxByteField.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxStringEncoding.h>
#include <schema/StringUtil.h>

#include <string>
#include <vector>

namespace StringUtil {

namespace {

// A variable of another type may hold any number.
COtxStringEncoding::Encoding number(const COtxValue& encoding) {
    const long long number = encoding.Int();
    const int narrow = static_cast<int>(number);
    if (narrow != number)
        throw COtxException(OTX::Exceptions_e::UnsupportedEncodingException, "Unknown encoding " + std::to_string(number));
    return static_cast<COtxStringEncoding::Encoding>(narrow);
}

}  // namespace

OTX_TERM(Encode, otxns::evaluateTwo(string(), encoding(), context, [](const COtxValue& text, const COtxValue& form) {
             const std::string& content = text.String();
             return COtxByteField(content, number(form));
         }))
OTX_TERM(Decode, otxns::evaluateTwo(bytes(), encoding(), context, [&](const COtxValue& field, const COtxValue& form) {
             return otxns::lookInto(context, [&] {
                 const std::vector<unsigned char>& content = field.ByteField();
                 return COtxString(content, number(form));
             });
         }))
OTX_TERM(EncodingLiteral, COtxStringEncoding(static_cast<const std::string&>(value())))
OTX_TERM(EncodingValue, otxns::valueOfVariable(*this, context))

// Without an initial value it is a string and no encoding; this is meant.
OTX_TERM(Encoding, otxns::initialValue(*this, context, []() -> COtxValue { return COtxString(); }))

}  // namespace StringUtil
