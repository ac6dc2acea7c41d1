// Reads a parameter of a message.
#include "vehicle/ReadParts.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace velkotx::host {

namespace {

constexpr std::uint64_t largestMessage = 0xFFFF;  // bytes

bool isBytewise(Coding coding) {
    return coding == Coding::ByteField || coding == Coding::Ascii || coding == Coding::Utf8;
}

// "rest", or {"countedBy": "Name"}; false when it is neither.
bool readExtent(const JsonPlace& place, ParameterDescription& target) {
    if (place.is(JsonNode::Kind::Text) && place.node().text == "rest") {
        target.extent = Extent::Rest;
        return true;
    }
    if (!place.is(JsonNode::Kind::Object))
        return false;
    ObjectReader in(place);
    in.required("countedBy", target.countedBy);
    in.finish();
    target.extent = Extent::Counted;
    return true;
}

void readLength(ObjectReader& in, ParameterDescription& target) {
    const auto bits = in.find("bits");
    const auto bytes = in.find("bytes");
    std::uint64_t value = 0;
    if (bits && bytes)
        bytes->mistake("\"bits\" stands here already");
    if (bits && readUnsigned(*bits, largestMessage * 8, value))
        target.bitLength = static_cast<std::size_t>(value);
    if (bytes && !readExtent(*bytes, target) && readUnsigned(*bytes, largestMessage, value))
        target.bitLength = static_cast<std::size_t>(value) * 8;
    if (target.extent != Extent::Fixed && !isBytewise(target.coding))
        bytes->mistake("only texts and byte fields have a length that isn't fixed");
}

// What a coding can have, in words.
const char* lengthsOf(Coding coding) {
    switch (coding) {
    case Coding::Signed:
        return "2 to 64 bits";
    case Coding::Float:
        return "32 or 64 bits";
    case Coding::Bcd:
        return "4 bits for each digit, up to 64";
    case Coding::ByteField:
    case Coding::Ascii:
    case Coding::Utf8:
        return "whole bytes, at least one";
    default:
        return "1 to 64 bits";
    }
}

bool fitsCoding(const ParameterDescription& parameter) {
    const std::size_t bits = parameter.bitLength;
    switch (parameter.coding) {
    case Coding::Unsigned:
    case Coding::Boolean:
    case Coding::TextTable:
        return bits >= 1 && bits <= 64;
    case Coding::Signed:
        return bits >= 2 && bits <= 64;
    case Coding::Float:
        return bits == 32 || bits == 64;
    case Coding::Bcd:
        return bits >= 4 && bits <= 64 && bits % 4 == 0;
    case Coding::ByteField:
    case Coding::Ascii:
    case Coding::Utf8:
        return bits >= 8 && bits % 8 == 0;
    }
    return false;
}

void readCoding(ObjectReader& in, ParameterDescription& target) {
    if (in.has("texts"))
        target.coding = Coding::TextTable;
    if (const auto place = in.find("coding"))
        readWord<Coding>(*place,
                         {{"unsigned", Coding::Unsigned},
                          {"signed", Coding::Signed},
                          {"float", Coding::Float},
                          {"boolean", Coding::Boolean},
                          {"ascii", Coding::Ascii},
                          {"utf8", Coding::Utf8},
                          {"bytes", Coding::ByteField},
                          {"bcd", Coding::Bcd},
                          {"texts", Coding::TextTable}},
                         target.coding);
    if (target.coding == Coding::Float)
        target.bitLength = 32;
    if (const auto place = in.find("byteOrder"))
        readWord<ByteOrder>(*place, {{"highFirst", ByteOrder::HighFirst}, {"lowFirst", ByteOrder::LowFirst}},
                            target.byteOrder);
    if (target.coding == Coding::TextTable && !in.has("texts") && in.place().is(JsonNode::Kind::Object))
        in.place().mistake("the key \"texts\" is missing");
}

bool readNumber(std::string_view text, std::uint64_t& value) {
    const bool hexadecimal = text.starts_with("0x");
    if (hexadecimal)
        text.remove_prefix(2);
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value, hexadecimal ? 16 : 10);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

// A key of a text table: "3", "0x1F", or "1..7".
bool readRange(std::string_view text, TextEntry& entry) {
    const auto dots = text.find("..");
    if (!readNumber(text.substr(0, dots), entry.from))
        return false;
    entry.to = entry.from;
    return dots == std::string_view::npos || (readNumber(text.substr(dots + 2), entry.to) && entry.from <= entry.to);
}

// The entry is the last of the table so far.
void checkRange(const JsonPlace& place, const TextEntry& entry, const ParameterDescription& parameter) {
    if (parameter.bitLength < 64 && entry.to >> parameter.bitLength != 0)
        place.mistake(std::to_string(entry.to) + " doesn't fit into " + std::to_string(parameter.bitLength) + " bits");
    const auto overlaps = [&](const TextEntry& other) {
        return &other != &entry && other.from <= entry.to && entry.from <= other.to;
    };
    if (std::any_of(parameter.texts.begin(), parameter.texts.end(), overlaps))
        place.mistake("another text before it stands for the same value");
}

void readTexts(ObjectReader& in, ParameterDescription& target) {
    const auto place = in.find("texts");
    if (!place || !place->expect(JsonNode::Kind::Object, "an object of coded value to text"))
        return;
    if (target.coding != Coding::TextTable)
        place->mistake("\"texts\" go with the coding \"texts\" only");
    const JsonNode& node = place->node();
    for (std::size_t index = 0; index < node.items.size(); ++index) {
        const JsonPlace item = place->inside(node.items[index], node.keys[index]);
        TextEntry& entry = target.texts.emplace_back();
        if (!readRange(node.keys[index], entry))
            item.mistake("expected a coded value as the key, like \"3\", \"0x1F\" or \"1..7\"");
        else
            checkRange(item, entry, target);
        readJson(item, entry.text);
    }
}

// Whether a value of the file can be one of the parameter; a text of digits becomes a byte field where one is wanted.
bool fitsParameter(PlainValue& value, const JsonPlace& place, const ParameterDescription& parameter) {
    switch (parameter.coding) {
    case Coding::Boolean:
        return std::holds_alternative<bool>(value);
    case Coding::Ascii:
    case Coding::Utf8:
        return std::holds_alternative<std::string>(value);
    case Coding::TextTable:
        return std::any_of(parameter.texts.begin(), parameter.texts.end(),
                           [&](const TextEntry& entry) { return value == PlainValue(entry.text); });
    case Coding::ByteField:
        if (std::holds_alternative<std::string>(value)) {
            Bytes bytes;
            if (readJson(place, bytes))
                value = std::move(bytes);
            return true;  // or the mistake is told already
        }
        return std::holds_alternative<Bytes>(value);
    default:
        return std::holds_alternative<std::int64_t>(value) || std::holds_alternative<double>(value);
    }
}

// The value is looked at whole only in a parameter that has been without a mistake so far: `known` of them are others'.
void readValueOf(ObjectReader& in, const char* key, const ParameterDescription& parameter, std::size_t known,
                 PlainValue& target) {
    const auto place = in.find(key);
    if (!place || !readJson(*place, target))
        return;
    const bool fits = fitsParameter(target, *place, parameter);
    if (!fits)
        place->mistake("not a value of this parameter's coding");
    else if (place->context().mistakes.size() == known)
        checkValue(*place, target, parameter);
}

void readSimple(ObjectReader& in, ParameterDescription& target) {
    const std::size_t known = in.place().context().mistakes.size();
    readCoding(in, target);
    readLength(in, target);
    if (target.extent == Extent::Fixed && !fitsCoding(target))
        in.place().mistake(std::to_string(target.bitLength) + " bits don't fit the coding: expected " +
                           lengthsOf(target.coding));
    if (const auto count = in.find("count"))
        count->mistake("only a structure is repeated: \"fields\" are missing");
    if (const auto place = in.find("bit")) {
        std::uint64_t bit = 0;
        if (readUnsigned(*place, 7, bit))
            target.bitPosition = static_cast<unsigned>(bit);
        if (target.bitPosition != 0 && isBytewise(target.coding))
            place->mistake("texts and byte fields begin at a whole byte");
    }
    readScaling(in, target.scaling);
    in.optional("unit", target.unit);
    std::optional<std::uint8_t> decimals;
    in.optional("decimals", decimals);
    target.decimals = decimals ? *decimals : -1;
    readTexts(in, target);
    in.optional("minimum", target.minimum);
    in.optional("maximum", target.maximum);
    if (target.minimum && target.maximum && *target.minimum > *target.maximum)
        in.place().mistake("the minimum is above the maximum");
    else if (in.place().context().mistakes.size() == known)
        checkLimits(in.place(), target);
    readValueOf(in, "default", target, known, target.defaultValue);
    readValueOf(in, "constant", target, known, target.constant);
    if (in.has("default") && in.has("constant"))
        in.find("default")->mistake("the \"constant\" stands there, and nothing else is ever sent");
}

void readComplex(ObjectReader& in, ParameterDescription& target) {
    readUniqueList(in, "fields", target.fields, [](const ParameterDescription& field) { return field.name; }, "name");
    const auto fields = in.find("fields");
    const auto count = in.find("count");
    target.kind = count ? ParameterKind::Repeated : ParameterKind::Structure;
    std::uint64_t value = 0;
    if (count && !readExtent(*count, target) && readUnsigned(*count, largestMessage, value)) {
        target.count = static_cast<std::size_t>(value);
        if (value == 0)
            count->mistake("expected at least one repetition");
    }
    if (fields->is(JsonNode::Kind::List) && target.fields.empty())
        in.place().mistake("expected at least one field");
}

}  // namespace

bool readJson(const JsonPlace& place, ParameterDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    in.optional("semantic", target.semantic);
    if (const auto byte = in.find("byte")) {
        std::uint64_t position = 0;
        if (readUnsigned(*byte, largestMessage, position))
            target.bytePosition = static_cast<std::size_t>(position);
    }
    if (in.has("fields"))
        readComplex(in, target);
    else
        readSimple(in, target);
    in.finish();
    return true;
}

}  // namespace velkotx::host
