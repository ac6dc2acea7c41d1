// Reads what a vehicle file says into plain structures, and notes what is wrong in it.
#include "vehicle/JsonReader.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <system_error>

namespace velkotx::host {

namespace {

// A JSON pointer's step, RFC 6901.
std::string escaped(const std::string& step) {
    std::string result;
    for (const char character : step) {
        if (character == '~')
            result += "~0";
        else if (character == '/')
            result += "~1";
        else
            result += character;
    }
    return result;
}

bool parseUnsigned(std::string_view text, std::uint64_t& value) {
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    }
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool parseHexadecimal(const std::string& text, Bytes& bytes) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), [](char character) { return character != ' '; });
    if (digits.size() % 2 != 0)
        return false;
    for (std::size_t index = 0; index < digits.size(); index += 2) {
        std::uint8_t byte = 0;
        const char* begin = digits.data() + index;
        const auto result = std::from_chars(begin, begin + 2, byte, 16);
        if (result.ec != std::errc() || result.ptr != begin + 2)
            return false;
        bytes.push_back(byte);
    }
    return true;
}

bool readInteger(const JsonPlace& place, PlainValue& target) {
    const JsonNode& node = place.node();
    constexpr auto limit = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (node.magnitude > limit + (node.negative ? 1 : 0)) {
        place.mistake("an integer of more than 64 bits");
        return false;
    }
    target = static_cast<std::int64_t>(node.negative ? std::uint64_t{0} - node.magnitude : node.magnitude);
    return true;
}

bool readByteField(const JsonPlace& place, PlainValue& target) {
    Bytes bytes;
    ObjectReader in(place);
    in.required("bytes", bytes);
    in.finish();
    target = std::move(bytes);
    return true;
}

}  // namespace

JsonPlace JsonPlace::inside(const JsonNode& node, const std::string& step) const {
    return {node, path_ + '/' + escaped(step), *context_};
}

void JsonPlace::mistake(const std::string& text) const {
    context_->mistakes.push_back({node_->line, path_, text});
}

bool JsonPlace::take(std::uint64_t bytes) const {
    if (bytes <= context_->bytesLeft) {
        context_->bytesLeft -= bytes;
        return true;
    }
    mistake("a vehicle has at most 256 MB of data and memory");
    return false;
}

bool JsonPlace::expect(JsonNode::Kind kind, const char* what) const {
    if (node_->kind == kind)
        return true;
    mistake(std::string("expected ") + what);
    return false;
}

std::vector<JsonPlace> JsonPlace::items() const {
    std::vector<JsonPlace> result;
    if (!expect(JsonNode::Kind::List, "a list"))
        return result;
    for (std::size_t index = 0; index < node_->items.size(); ++index)
        result.push_back(inside(node_->items[index], std::to_string(index)));
    return result;
}

bool readJson(const JsonPlace& place, bool& target) {
    if (!place.expect(JsonNode::Kind::Boolean, "true or false"))
        return false;
    target = place.node().truth;
    return true;
}

bool readJson(const JsonPlace& place, double& target) {
    if (!place.is(JsonNode::Kind::Integer) && !place.expect(JsonNode::Kind::Number, "a number"))
        return false;
    target = place.node().number;
    return true;
}

bool readJson(const JsonPlace& place, std::string& target) {
    if (!place.expect(JsonNode::Kind::Text, "a text"))
        return false;
    target = place.node().text;
    return true;
}

bool readJson(const JsonPlace& place, Bytes& target) {
    if (!place.expect(JsonNode::Kind::Text, "bytes, as a text of hexadecimal digits"))
        return false;
    Bytes bytes;
    if (!parseHexadecimal(place.node().text, bytes)) {
        place.mistake("expected bytes, two hexadecimal digits each");
        return false;
    }
    target = std::move(bytes);
    return true;
}

bool readJson(const JsonPlace& place, Clock::Duration& target) {
    constexpr double longest = 1000.0 * 3600 * 24 * 365;
    double milliseconds = 0;
    if (!readJson(place, milliseconds))
        return false;
    if (milliseconds < 0 || milliseconds > longest) {
        place.mistake("expected a time in milliseconds, from 0 to a year");
        return false;
    }
    target = Clock::Duration(static_cast<Clock::Duration::rep>(milliseconds * 1000));
    return true;
}

bool readJson(const JsonPlace& place, PlainValue& target) {
    switch (place.node().kind) {
    case JsonNode::Kind::Boolean:
        target = place.node().truth;
        return true;
    case JsonNode::Kind::Integer:
        return readInteger(place, target);
    case JsonNode::Kind::Number:
        target = place.node().number;
        return true;
    case JsonNode::Kind::Text:
        target = place.node().text;
        return true;
    case JsonNode::Kind::Object:
        return readByteField(place, target);
    default:
        place.mistake("expected true, false, a number, a text, or {\"bytes\": \"...\"}");
        return false;
    }
}

bool readUnsigned(const JsonPlace& place, std::uint64_t limit, std::uint64_t& target) {
    const JsonNode& node = place.node();
    std::uint64_t value = 0;
    bool fits = false;
    if (node.kind == JsonNode::Kind::Integer) {
        value = node.magnitude;
        fits = !node.negative || value == 0;
    } else if (node.kind == JsonNode::Kind::Text) {
        fits = parseUnsigned(node.text, value);
    }
    if (!fits || value > limit) {
        place.mistake("expected a whole number from 0 to " + std::to_string(limit) + ", or a text like \"0x1F\"");
        return false;
    }
    target = value;
    return true;
}

ObjectReader::ObjectReader(const JsonPlace& place) : place_(place), asked_(place.node().items.size(), false) {
    place.expect(JsonNode::Kind::Object, "an object");
}

bool ObjectReader::has(const char* key) const {
    const std::vector<std::string>& keys = place_.node().keys;
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

std::optional<JsonPlace> ObjectReader::find(const char* key) {
    const std::vector<std::string>& keys = place_.node().keys;
    const auto found = std::find(keys.begin(), keys.end(), key);
    if (found == keys.end())
        return std::nullopt;
    const auto index = static_cast<std::size_t>(found - keys.begin());
    asked_[index] = true;
    return place_.inside(place_.node().items[index], key);
}

std::optional<JsonPlace> ObjectReader::require(const char* key) {
    const auto member = find(key);
    if (!member && place_.is(JsonNode::Kind::Object))
        place_.mistake(std::string("the key \"") + key + "\" is missing");
    return member;
}

void ObjectReader::name(std::string& target, const char* key) {
    const auto member = require(key);
    if (member && readJson(*member, target) && target.empty())
        member->mistake("expected at least one character");
}

void ObjectReader::finish() const {
    const JsonNode& node = place_.node();
    for (std::size_t index = 0; index < node.keys.size(); ++index)
        if (!asked_[index] && !node.items[index].repeated)
            place_.inside(node.items[index], node.keys[index]).mistake("unknown key");
}

}  // namespace velkotx::host
