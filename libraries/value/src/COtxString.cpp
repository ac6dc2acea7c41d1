// The String value.
#include <otx/value/COtxString.h>

#include <utility>

#include "ByteFieldValues.h"
#include "Characters.h"
#include "Make.h"
#include "NativeBehaviour.h"
#include "Numbers.h"
#include "NumberValues.h"
#include "JsonWriter.h"
#include "Refusal.h"
#include "StringBytes.h"
#include "StringOperations.h"
#include "TextValues.h"

#include <ostream>

namespace otx {

namespace {

class StringBehaviour final : public NativeBehaviour<StringBehaviour>, public OTX::IString {
public:
    explicit StringBehaviour(std::string&& text)
        : std::string(std::move(text)), NativeBehaviour(OTX::ValueType::String, Native::String, Scalar{0}) {}

    COtxValue ToBoolean() override {
        if (isWord("true")) return makeBoolean(true);
        if (isWord("false")) return makeBoolean(false);
        failConversion("ToBoolean", "neither true nor false");
    }
    COtxValue ToInteger() override { return makeInteger(parsed(parseInteger(*this), "ToInteger", "no integer")); }
    COtxValue ToFloat() override { return makeFloat(parsed(parseFloat(*this), "ToFloat", "no number")); }
    COtxValue ToString() override { return makeText(*this); }
    COtxValue ToByteField() override { return makeByteField({begin(), end()}); }
    COtxValue ToHexBinaryString() override { return makeText(hexText({begin(), end()})); }
    void ToStream(std::ostream& out, int depth) const override {
        const std::string text = depth == 0 ? std::string(*this) : quoted(*this);
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
    }
    COtxValue ToJSONObject(Value2IdMap&) override { return makeText(*this); }

    const OTX::IString& IString() const override { return *this; }
    const char* what() const override { return c_str(); }

    COtxValue Length() const override { return stringLength(characters()); }
    COtxValue IndexOf(const COtxValue& pattern) const override { return stringIndexOf(characters(), pattern); }
    COtxValue SubString(const COtxValue& index, const COtxValue& count) const override {
        return stringSubString(characters(), index, count);
    }
    COtxValue Replace(const COtxValue& replacement, const COtxValue& index) const override {
        return stringReplace(characters(), replacement, index);
    }
    COtxValue Split(const COtxValue& delimiter) const override { return stringSplit(characters(), delimiter); }
    COtxValue ToUpper() const override { return stringToUpper(*this); }
    COtxValue ToLower() const override { return stringToLower(*this); }
    COtxValue Match(const COtxValue& expression) const override { return stringMatch(characters(), expression); }

    Characters characters() const { return {*this, known_}; }

    bool equalTo(const COtxValueBehaviour& right) const { return textOf(*this) == textOf(right); }
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const { return textOf(*this) <=> textOf(right); }

private:
    static const std::string& textOf(const COtxValueBehaviour& behaviour) {
        return static_cast<const StringBehaviour&>(behaviour);
    }

    [[noreturn]] void failConversion(const char* operation, const char* reason) const {
        fail(OTX::Exceptions_e::TypeMismatchException,
             std::string(operation) + " of String '" + std::string(*this) + "': " + reason);
    }

    bool isWord(std::string_view lowerCase) const {
        if (size() != lowerCase.size()) return false;
        for (std::size_t place = 0; place < size(); ++place) {
            const char letter = (*this)[place];
            if ((letter >= 'A' && letter <= 'Z' ? letter + ('a' - 'A') : letter) != lowerCase[place]) return false;
        }
        return true;
    }

    template <class Number>
    Number parsed(const ParsedNumber<Number>& number, const char* operation, const char* reason) const {
        if (number.error == NumberError::NotANumber) failConversion(operation, reason);
        if (number.error == NumberError::OutOfRange)
            fail(OTX::Exceptions_e::ArithmeticException,
                 std::string(operation) + " of String '" + std::string(*this) + "': beyond 64 bits");
        return number.value;
    }

    mutable KnownCharacters known_{0};
};

}  // namespace

COtxValue makeText(std::string text) { return makePlain<StringBehaviour>(std::move(text)); }

Characters charactersOf(const COtxValue& string) {
    const auto& behaviour = string.GetBehaviourReference();
    if (behaviour != nullptr && behaviour->NativeKind() == COtxValueBehaviour::Native::String)
        return static_cast<const StringBehaviour&>(*behaviour).characters();
    return Characters(string.String());
}

const char* lastingText(const COtxValue& text) {
    static thread_local std::string last;
    last = text.String();
    return last.c_str();
}

}  // namespace otx

COtxString::COtxString() : COtxValue(otx::makeText({})) {}
COtxString::COtxString(const std::string& text) : COtxValue(otx::makeText(text)) {}
COtxString::COtxString(std::string&& text) : COtxValue(otx::makeText(std::move(text))) {}
COtxString::COtxString(const char* text) : COtxValue(otx::makeText(text)) {}
COtxString::COtxString(const std::vector<unsigned char>& bytes, COtxStringEncoding::Encoding encoding)
    : COtxValue(otx::makeText(otx::decodeText(bytes, encoding))) {}
