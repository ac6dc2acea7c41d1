// What an operator types, taken as words, numbers and values.
#include "operator/TypedText.h"

#include "text/ValueText.h"

#include <otx/value/COtxString.h>

#include <charconv>
#include <system_error>

namespace velkotx::host {

std::string withoutBlanksAround(const std::string& text) {
    constexpr const char* blanks = " \t\r";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::string lowerCaseWord(const std::string& text) {
    std::string word = withoutBlanksAround(text);
    for (char& letter : word)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return word;
}

std::optional<long long> wholeNumber(const std::string& text) {
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end)
        return {};
    return number;
}

COtxValue valueLike(const COtxValue& example, const std::string& text) {
    const COtxValue typed = valueOf(text);
    if (example.Type() == OTX::ValueType::String)
        return typed.Type() == OTX::ValueType::String ? typed : COtxString(text);
    if (example.Type() == OTX::ValueType::Empty || typed.Type() == example.Type())
        return typed;
    if (example.Type() == OTX::ValueType::Float && typed.Type() == OTX::ValueType::Integer)
        return typed.ToFloat();
    throw TypingError("a value of type " + example.stringType() + " is needed");
}

}  // namespace velkotx::host
