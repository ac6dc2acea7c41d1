// Reads what a vehicle file says into plain structures, and notes what is wrong in it.
#pragma once

#include <vehicle/JsonNode.h>
#include <vehicle/Mistake.h>
#include <vehicle/ServiceDescription.h>

#include <transport/Clock.h>

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velkotx::host {

// What holds for a whole reading.
struct ReadContext {
    std::vector<Mistake> mistakes;
    std::filesystem::path folder;  // of the file; data files are named from there
    std::uint64_t bytesLeft = std::uint64_t{256} << 20U;  // bounds what a small file can ask for
    // Of the control unit that is being read: what its parts call by name.
    std::map<std::string, std::uint8_t> sessions;
    std::map<std::string, std::uint8_t> securities;
};

// A value of the file, and where it stands. Cheap to copy; lives no longer than the tree and the context.
class JsonPlace {
public:
    JsonPlace(const JsonNode& node, std::string path, ReadContext& context)
        : node_(&node), path_(std::move(path)), context_(&context) {}

    const JsonNode& node() const { return *node_; }
    ReadContext& context() const { return *context_; }
    JsonPlace inside(const JsonNode& node, const std::string& step) const;
    void mistake(const std::string& text) const;

    bool is(JsonNode::Kind kind) const { return node_->kind == kind; }
    // Takes so many bytes from those that are left; false, and a mistake, when there are fewer.
    bool take(std::uint64_t bytes) const;
    // False, and a mistake, when it is of another kind.
    bool expect(JsonNode::Kind kind, const char* what) const;
    // The items of a list; none, and a mistake, when it isn't one.
    std::vector<JsonPlace> items() const;

private:
    const JsonNode* node_;
    std::string path_;
    ReadContext* context_;
};

// --- simple values: each gives false after a mistake, and leaves the target then ------------------------------------

bool readJson(const JsonPlace& place, bool& target);
bool readJson(const JsonPlace& place, double& target);
bool readJson(const JsonPlace& place, std::string& target);
bool readJson(const JsonPlace& place, Bytes& target);            // hexadecimal digits: "22 F1 90"
bool readJson(const JsonPlace& place, Clock::Duration& target);  // milliseconds, not negative
bool readJson(const JsonPlace& place, PlainValue& target);       // {"bytes": "01 02"} is a byte field

// A number, or a text like "0xF190", from 0 to the limit.
bool readUnsigned(const JsonPlace& place, std::uint64_t limit, std::uint64_t& target);

template <typename Unsigned>
requires(std::unsigned_integral<Unsigned> && !std::same_as<Unsigned, bool>)
bool readJson(const JsonPlace& place, Unsigned& target) {
    std::uint64_t value = 0;
    if (!readUnsigned(place, std::numeric_limits<Unsigned>::max(), value))
        return false;
    target = static_cast<Unsigned>(value);
    return true;
}

template <typename Value>
bool readJson(const JsonPlace& place, std::optional<Value>& target) {
    Value value{};
    if (!readJson(place, value))
        return false;
    target = std::move(value);
    return true;
}

template <typename Item>
bool readJson(const JsonPlace& place, std::vector<Item>& target) {
    for (const JsonPlace& item : place.items())
        readJson(item, target.emplace_back());
    return place.is(JsonNode::Kind::List);
}

// One of some words. The words of the mistake are put together from them.
template <typename Value>
bool readWord(const JsonPlace& place, std::initializer_list<std::pair<const char*, Value>> words, Value& target) {
    std::string all;
    for (const auto& [word, value] : words) {
        if (place.is(JsonNode::Kind::Text) && place.node().text == word) {
            target = value;
            return true;
        }
        all += (all.empty() ? "\"" : ", \"") + std::string(word) + '"';
    }
    place.mistake("expected one of " + all);
    return false;
}

// The members of an object. Whoever reads one calls finish() at the end, which notes the keys that nobody asked for.
class ObjectReader {
public:
    // Anything but an object is a mistake, and reads like an empty object that lacks nothing.
    explicit ObjectReader(const JsonPlace& place);

    const JsonPlace& place() const { return place_; }
    bool has(const char* key) const;
    // The member, if it is there.
    std::optional<JsonPlace> find(const char* key);
    // The member; a mistake when it isn't there.
    std::optional<JsonPlace> require(const char* key);

    template <typename Target>
    void required(const char* key, Target& target) {
        if (const auto member = require(key))
            readJson(*member, target);
    }
    // A name: a text with at least one character, under the key "name" or another.
    void name(std::string& target, const char* key = "name");
    template <typename Target>
    void optional(const char* key, Target& target) {
        if (const auto member = find(key))
            readJson(*member, target);
    }

    void finish() const;

private:
    JsonPlace place_;
    std::vector<bool> asked_;
};

}  // namespace velkotx::host
