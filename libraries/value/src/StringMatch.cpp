// Matching a text against a regular expression.

// False alarms of g++ within <regex>, in builds with sanitizers.
#if !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <locale>
#include <regex>
#include <string>

#include <otx/Stack.h>
#include <otx/value/IString.h>

#include "ExpressionSize.h"
#include "NumberValues.h"
#include "Refusal.h"
#include "StringOperations.h"
#include "Utf8.h"

namespace otx {

namespace {

static_assert(sizeof(wchar_t) == sizeof(char32_t), "an expression matches whole characters");

[[noreturn]] void failMatch(const std::string& reason) {
    fail(OTX::Exceptions_e::StringUtilException, "Match: " + reason);
}

std::wstring wide(const std::string& text) {
    const std::u32string characters = decodeUtf8(text);
    return {characters.begin(), characters.end()};
}

bool hasBackReference(const std::wstring& expression) {
    for (std::size_t place = 0; place + 1 < expression.size(); ++place) {
        if (expression[place] != L'\\') continue;
        ++place;
        if (expression[place] >= L'1' && expression[place] <= L'9') return true;
    }
    return false;
}

// The standard library's compiler and matcher recurse: over the expression always, over the text for back-references.
// Refuses what they might not have the stack for.
void checkSize(const std::wstring& expression, const std::wstring& text, bool recursesOverText) {
    // Measured: up to 270 bytes a character of the expression and 900 of the text, three times that with sanitizers.
    constexpr std::size_t stackForExpression = 1024;
    constexpr std::size_t stackForText = 4096;
    const std::size_t left = stackLeft();
    const std::size_t size = expandedSize(expression);
    if (size > left / stackForExpression) failMatch("the expression is too long");
    if (recursesOverText && text.size() > (left - size * stackForExpression) / stackForText)
        failMatch("the text is too long for an expression with back-references");
}

}  // namespace

COtxValue stringMatch(const std::string& text, const COtxValue& expression) {
    const std::wstring subject = wide(text);
    const std::wstring pattern = wide(expression.String());
    const bool backReference = hasBackReference(pattern);
    checkSize(pattern, subject, backReference);
    try {
        std::wregex compiled;
        // Neither the process's locale nor the host's may change what matches.
        compiled.imbue(std::locale::classic());
        auto flags = std::regex_constants::ECMAScript;
        if (!backReference) flags |= std::regex_constants::__polynomial;
        compiled.assign(pattern, flags);
        return makeBoolean(std::regex_match(subject, compiled));
    } catch (const std::regex_error& error) {
        failMatch(error.what());
    }
}

}  // namespace otx
