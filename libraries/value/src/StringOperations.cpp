// The operations of OTX::IString over plain texts.
#include "StringOperations.h"

#include <otx/Interruption.h>
#include <otx/value/COtxList.h>

#include "NumberValues.h"
#include "Refusal.h"
#include "Search.h"
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

std::size_t position(const Characters& text, const COtxValue& index, const char* operation) {
    const std::size_t value = natural(index, operation);
    const auto place = text.placeOf(value);
    if (!place)
        fail(OTX::Exceptions_e::OutOfBoundsException,
             std::string(operation) + ": index " + std::to_string(value) + " is outside the string");
    return *place;
}

COtxValue eachCharacter(std::string_view text) {
    constexpr std::size_t charactersAtOnce = 65536;
    std::vector<COtxValue> characters;
    while (!text.empty()) {
        const std::string_view before = text;
        takeCharacter(text);
        characters.push_back(makeText(std::string(before.substr(0, before.size() - text.size()))));
        if (characters.size() % charactersAtOnce == 0) checkInterruption();
    }
    return COtxList(std::move(characters));
}

}  // namespace

COtxValue stringLength(const Characters& text) { return makeInteger(static_cast<long long>(text.count())); }

COtxValue stringIndexOf(const Characters& text, const COtxValue& pattern) {
    const Characters sought = charactersOf(pattern);
    if (sought.text().empty()) return makeInteger(0);
    const std::size_t found = Search(text, sought).next(0);
    return makeInteger(found == Search::none ? -1 : static_cast<long long>(text.positionOf(found)));
}

COtxValue stringSubString(const Characters& text, const COtxValue& index, const COtxValue& count) {
    const std::size_t begin = position(text, index, "SubString");
    const std::size_t end = text.placeBehind(begin, natural(count, "SubString"));
    return makeText(text.text().substr(begin, end - begin));
}

COtxValue stringReplace(const Characters& text, const COtxValue& replacement, const COtxValue& index) {
    const Characters written = charactersOf(replacement);
    const std::size_t begin = position(text, index, "Replace");
    const std::size_t end = text.placeBehind(begin, written.count());
    std::string result;
    result.reserve(text.text().size() - (end - begin) + written.text().size());
    result.append(text.text(), 0, begin).append(written.text()).append(text.text(), end);
    return makeText(std::move(result));
}

COtxValue stringSplit(const Characters& text, const COtxValue& delimiter) {
    const Characters mark = charactersOf(delimiter);
    if (mark.text().empty()) return eachCharacter(text.text());
    std::vector<COtxValue> parts;
    Search search(text, mark);
    std::size_t begin = 0;
    for (std::size_t end = search.next(0); end != Search::none; end = search.next(begin)) {
        parts.push_back(makeText(text.text().substr(begin, end - begin)));
        begin = end + mark.text().size();
    }
    parts.push_back(makeText(text.text().substr(begin)));
    return COtxList(std::move(parts));
}

COtxValue stringToUpper(const std::string& text) { return makeText(upperCase(text)); }
COtxValue stringToLower(const std::string& text) { return makeText(lowerCase(text)); }

}  // namespace otx
