// Values of the types that JSON doesn't carry natively, from the objects that stand for them.
#include "JsonTyped.h"

#include <limits>
#include <optional>

#include <otx/value/COtxByteField.h>
#include <otx/value/COtxEnumerationItem.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxExceptions.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxQuantity.h>
#include <otx/value/COtxString.h>
#include <otx/value/COtxUnit.h>

#include "Enumerations.h"
#include "JsonTags.h"
#include "NumberValues.h"

namespace otx {

namespace {

using OTX::ValueType;

[[noreturn]] void failMismatch(ValueType type, const std::string& needed) {
    throw JsonMismatch{"\"" + OTX::typeName(type) + "\" needs " + needed};
}

const std::string& text(ValueType type, const COtxValue& content, const char* needed) {
    if (content.Type() != ValueType::String) failMismatch(type, needed);
    return content.String();
}

// The member of an object that must have exactly `size` members.
const COtxValue& member(ValueType type, const COtxValue& content, const char* name, std::size_t size,
                        const char* needed) {
    if (content.Type() != ValueType::Map || content.Map().size() != size) failMismatch(type, needed);
    const auto found = content.Map().find(COtxString(name));
    if (found == content.Map().end()) failMismatch(type, needed);
    return found->second;
}

COtxValue readByteField(const COtxValue& content) {
    constexpr const char* needed = "a string of hexadecimal digits, two a byte";
    try {
        return COtxByteField(text(ValueType::ByteField, content, needed), COtxStringEncoding::Hex);
    } catch (const COtxValue&) {
        failMismatch(ValueType::ByteField, needed);
    }
}

COtxValue readFloat(const COtxValue& content) {
    constexpr const char* needed = "\"NaN\", \"INF\" or \"-INF\"";
    const std::string& name = text(ValueType::Float, content, needed);
    if (name == "NaN") return makeFloat(std::numeric_limits<double>::quiet_NaN());
    if (name == "INF") return makeFloat(std::numeric_limits<double>::infinity());
    if (name == "-INF") return makeFloat(-std::numeric_limits<double>::infinity());
    failMismatch(ValueType::Float, needed);
}

COtxValue readMap(const COtxValue& content) {
    constexpr const char* needed = "an array of pairs, each an array of key and value";
    if (content.Type() != ValueType::List) failMismatch(ValueType::Map, needed);
    std::map<COtxValue, COtxValue> entries;
    for (const COtxValue& pair : content.List()) {
        if (pair.Type() != ValueType::List || pair.List().size() != 2) failMismatch(ValueType::Map, needed);
        entries.insert_or_assign(pair.List()[0], pair.List()[1]);
    }
    return COtxMap(std::move(entries));
}

COtxValue readQuantity(const COtxValue& content) {
    constexpr auto type = ValueType::Quantity;
    constexpr const char* needed = "an object with the number \"value\", the string \"unit\", the integer \"precision\"";
    const COtxValue& value = member(type, content, "value", 3, needed);
    const COtxValue& precision = member(type, content, "precision", 3, needed);
    if (value.Type() != ValueType::Float && value.Type() != ValueType::Integer) failMismatch(type, needed);
    if (precision.Type() != ValueType::Integer || precision.Int() < std::numeric_limits<int>::min() ||
        precision.Int() > std::numeric_limits<int>::max())
        failMismatch(type, needed);
    return COtxQuantity(value, COtxUnit(text(type, member(type, content, "unit", 3, needed), needed)),
                        static_cast<int>(precision.Int()));
}

COtxValue readException(const COtxValue& content) {
    constexpr auto type = ValueType::Exception;
    constexpr const char* needed = "an object with the strings \"type\" (a kind of exception), \"qualifier\", \"text\"";
    OTX::Exceptions_e kind{};
    if (!COtxExceptions::Find(text(type, member(type, content, "type", 3, needed), needed), kind))
        failMismatch(type, needed);
    return COtxException(kind, text(type, member(type, content, "qualifier", 3, needed), needed),
                         text(type, member(type, content, "text", 3, needed), needed));
}

COtxValue readEnumerationItem(const COtxValue& content) {
    constexpr auto type = ValueType::EnumerationItem;
    constexpr const char* needed = "an object with the strings \"type\" and \"name\", and a \"value\"";
    const COtxValue& typeName = member(type, content, "type", 3, needed);
    const COtxValue& name = member(type, content, "name", 3, needed);
    text(type, typeName, needed);
    text(type, name, needed);
    return COtxEnumerationItem(typeName, name, member(type, content, "value", 3, needed));
}

COtxValue readEnumeration(ValueType type, const COtxValue& content) {
    constexpr const char* needed = "one of its literals as a string";
    const auto number = enumerationNumber(type, text(type, content, needed));
    if (!number) failMismatch(type, needed);
    return makeEnumeration(type, *number);
}

}  // namespace

COtxValue typedJson(std::map<COtxValue, COtxValue>&& entries) {
    std::optional<ValueType> type;
    if (entries.size() == 1) type = jsonTag(entries.begin()->first.String());
    if (!type) return COtxMap(std::move(entries));
    const COtxValue& content = entries.begin()->second;
    switch (*type) {
        case ValueType::ByteField: return readByteField(content);
        case ValueType::Float: return readFloat(content);
        case ValueType::Map: return readMap(content);
        case ValueType::Quantity: return readQuantity(content);
        case ValueType::Unit: return COtxUnit(text(ValueType::Unit, content, "its name as a string"));
        case ValueType::Exception: return readException(content);
        case ValueType::EnumerationItem: return readEnumerationItem(content);
        default:
            if (isEnumeration(*type)) return readEnumeration(*type, content);
            return COtxMap(std::move(entries));
    }
}

}  // namespace otx
