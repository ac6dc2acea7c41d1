// The operations of OTX::IString over plain texts.
#include "StringOperations.h"

#include <otx/value/COtxList.h>
#include <otx/value/IString.h>

#include "NumberValues.h"
#include "Refusal.h"
#include "TextValues.h"
#include "Utf8.h"

namespace otx {

namespace {

// A position or count, which must not be negative.
std::size_t natural(const COtxValue& number, const char* operation) {
    const long long value = number.Int();
    if (value < 0)
        fail(OTX::Exceptions_e::OutOfBoundsException, std::string(operation) + ": negative " + std::to_string(value));
    return static_cast<std::size_t>(value);
}

std::size_t position(const std::string& text, const COtxValue& index, const char* operation) {
    const std::size_t value = natural(index, operation);
    const auto place = placeOfCharacter(text, value);
    if (!place)
        fail(OTX::Exceptions_e::OutOfBoundsException,
             std::string(operation) + ": index " + std::to_string(value) + " is outside the string");
    return *place;
}

COtxValue eachCharacter(std::string_view text) {
    std::vector<COtxValue> characters;
    while (!text.empty()) {
        const std::string_view before = text;
        takeCharacter(text);
        characters.push_back(makeText(std::string(before.substr(0, before.size() - text.size()))));
    }
    return COtxList(std::move(characters));
}

}  // namespace

COtxValue stringLength(const std::string& text) { return makeInteger(static_cast<long long>(countCharacters(text))); }

COtxValue stringIndexOf(const std::string& text, const COtxValue& pattern) {
    const std::size_t found = text.find(pattern.String());
    if (found == std::string::npos) return makeInteger(-1);
    return makeInteger(static_cast<long long>(countCharacters(std::string_view(text).substr(0, found))));
}

COtxValue stringSubString(const std::string& text, const COtxValue& index, const COtxValue& count) {
    const std::size_t begin = position(text, index, "SubString");
    const std::string_view rest = std::string_view(text).substr(begin);
    return makeText(std::string(rest.substr(0, byteOfCharacter(rest, natural(count, "SubString")))));
}

COtxValue stringReplace(const std::string& text, const COtxValue& replacement, const COtxValue& index) {
    const std::string& written = replacement.String();
    const std::size_t begin = position(text, index, "Replace");
    const std::string_view rest = std::string_view(text).substr(begin);
    std::string result = text.substr(0, begin) + written;
    result += rest.substr(byteOfCharacter(rest, countCharacters(written)));
    return makeText(std::move(result));
}

COtxValue stringSplit(const std::string& text, const COtxValue& delimiter) {
    const std::string& mark = delimiter.String();
    if (mark.empty()) return eachCharacter(text);
    std::vector<COtxValue> parts;
    std::size_t begin = 0;
    for (std::size_t end = text.find(mark); end != std::string::npos; end = text.find(mark, begin)) {
        parts.push_back(makeText(text.substr(begin, end - begin)));
        begin = end + mark.size();
    }
    parts.push_back(makeText(text.substr(begin)));
    return COtxList(std::move(parts));
}

COtxValue stringToUpper(const std::string& text) { return makeText(upperCase(text)); }
COtxValue stringToLower(const std::string& text) { return makeText(lowerCase(text)); }

}  // namespace otx
