// Upper and lower case by the tables of Unicode.
#include <unicode/bytestream.h>
#include <unicode/casemap.h>

#include <limits>

#include "Refusal.h"
#include "Utf8.h"

namespace otx {

namespace {

// The mapping of the root locale: that of the process doesn't count.
constexpr const char* noLocale = "";

template <class Map>
std::string mapped(std::string_view text, Map map) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() / 2))
        fail(OTX::Exceptions_e::StringUtilException, "The text is too long for a change of case");
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(text.size()));
    UErrorCode error = U_ZERO_ERROR;
    map(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink, error);
    if (U_FAILURE(error)) fail(OTX::Exceptions_e::StringUtilException, u_errorName(error));
    return result;
}

// Both mappings leave bytes that are no UTF-8 to the caller.
template <class Map>
std::string mappedAround(std::string_view text, Map map) {
    if (isUtf8(text)) return mapped(text, map);
    std::string result;
    std::string_view valid = text.substr(0, 0);
    for (std::string_view rest = text; !rest.empty();) {
        const char* const place = rest.data();
        if (takeCharacter(rest)) {
            valid = {valid.data(), static_cast<std::size_t>(rest.data() - valid.data())};
            continue;
        }
        result += mapped(valid, map);
        result += *place;
        valid = rest.substr(0, 0);
    }
    return result + mapped(valid, map);
}

}  // namespace

std::string upperCase(std::string_view text) {
    return mappedAround(text, [](icu::StringPiece piece, icu::ByteSink& sink, UErrorCode& error) {
        icu::CaseMap::utf8ToUpper(noLocale, 0, piece, sink, nullptr, error);
    });
}

std::string lowerCase(std::string_view text) {
    return mappedAround(text, [](icu::StringPiece piece, icu::ByteSink& sink, UErrorCode& error) {
        icu::CaseMap::utf8ToLower(noLocale, 0, piece, sink, nullptr, error);
    });
}

}  // namespace otx
