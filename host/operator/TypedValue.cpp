// What an operator types, taken as a value.
#include "operator/TypedValue.h"

#include "operator/TypedText.h"
#include "text/OneLine.h"
#include "text/ValueText.h"

#include <otx/value/COtxBool.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxQuantity.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxUnit.h>
#include <otx/value/Json.h>

#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <system_error>

namespace velkotx::host {

namespace {

using Examples = std::vector<COtxValue>;
using OTX::ValueType;

std::optional<COtxValue> booleanOf(const std::string& text) {
    const std::string word = lowerCaseWord(text);
    if (word == "true" || word == "false")
        return COtxBool(word == "true");
    return {};
}

// What JSON writes as an object of the type's name and a text: bytes, names of enumerations, units, floats that are no numbers.
std::optional<COtxValue> namedValueOf(const COtxValue& example, const std::string& text) {
    const std::map<const std::string, COtxValue> object{{example.stringType(), COtxString(text)}};
    try {
        const COtxValue json = COtxMap(object).ToJSON();
        const COtxValue value = OTX::FromJSON(json.String());
        if (value.Type() == example.Type())
            return value;
    } catch (const COtxValue&) {  // the text is none of its
    }
    return {};
}

std::string upperCaseWord(const std::string& text) {
    std::string word = withoutBlanksAround(text);
    for (char& letter : word)
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    return word;
}

std::optional<COtxValue> elementOf(const Examples& examples, const std::string& text) {
    for (const COtxValue& example : examples)
        if (lineOf(example) == withoutBlanksAround(text))
            return example;
    return {};
}

std::optional<COtxValue> quantityOf(const COtxValue& example, const std::string& text) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    const std::string unit = withoutBlanksAround(std::string(stop, end));
    // Another decimal sign is no unit, nor is the rest of a word that begins like "NaN" or "INF".
    const bool isCutOff = stop != end && *stop != ' ' && (*stop == ',' || *stop == '.' || !std::isfinite(number));
    if (error != std::errc() || isCutOff)
        return {};
    const OTX::IQuantity& quantity = example.Quantity();
    const COtxValue exampleUnit = quantity.GetDisplayUnit();
    if (unit.empty())
        return COtxQuantity(number, exampleUnit, quantity.GetPrecision());
    const COtxQuantity typed(number, COtxUnit(unit), quantity.GetPrecision());
    try {
        if (!exampleUnit.Unit().Name().empty())
            COtxQuantity::RequireComparable(example, typed);
    } catch (const COtxValue& refusal) {
        throw TypingError(oneLine(refusal.what()));
    }
    return typed;
}

// How such values may be typed.
std::string formOf(const Examples& examples) {
    const COtxValue& example = examples.front();
    switch (example.Type()) {
        case ValueType::Boolean: return "TRUE or FALSE";
        case ValueType::Integer: return "a whole number";
        case ValueType::Float: return "a number such as 2.5";
        case ValueType::ByteField: return "hexadecimal digits, two a byte, such as 0A1B";
        case ValueType::List: return "JSON such as [1, 2]";
        case ValueType::Map: return R"(JSON such as {"key": 1} or {"Map": [[1, 2]]})";
        case ValueType::Quantity: {
            const COtxValue unit = example.Quantity().GetDisplayUnit();
            const std::string name = oneLine(unit.Unit().Name());
            return name.empty() ? "a number such as 2.5, or one with a unit, 2.5 V"
                                : "a number of " + name + " such as 2.5, or one with its unit, 2.5 " + name;
        }
        case ValueType::EnumerationItem: {
            std::string names;
            for (const COtxValue& each : examples)
                names += lineOf(each) + ", ";
            return "the name of an element that the screen has shown: " + names +
                   R"(or {"Enumeration": {"type": "T", "name": "N", "value": 1}})";
        }
        default: return "written as " + lineOf(example) + ", or JSON of the form {\"" + example.stringType() + "\": ...}";
    }
}

std::optional<COtxValue> readLike(const Examples& examples, const std::string& text) {
    const COtxValue& example = examples.front();
    const COtxValue json = valueOf(text);
    if (example.Type() == ValueType::String)
        return json.Type() == ValueType::String ? json : COtxString(text);
    if (json.Type() == example.Type())
        return json;
    const std::string content = json.Type() == ValueType::String ? static_cast<const std::string&>(json.String()) : text;
    switch (example.Type()) {
        case ValueType::Boolean: return booleanOf(content);
        case ValueType::Quantity: return quantityOf(example, withoutBlanksAround(content));
        case ValueType::EnumerationItem: return elementOf(examples, content);
        case ValueType::Float:
            if (json.Type() == ValueType::Integer)
                return json.ToFloat();
            break;
        default: break;
    }
    const auto value = namedValueOf(example, withoutBlanksAround(content));
    return value ? value : namedValueOf(example, upperCaseWord(content));
}

}  // namespace

COtxValue valueLike(const std::vector<COtxValue>& examples, const std::string& text) {
    if (examples.empty()) {
        const auto boolean = booleanOf(text);
        return boolean ? *boolean : valueOf(text);
    }
    if (const auto value = readLike(examples, text))
        return *value;
    throw TypingError("a value of type " + examples.front().stringType() + " is needed, " + formOf(examples));
}

}  // namespace velkotx::host
