// A JSON text as a tree that knows the line of each value.
#include "vehicle/JsonNode.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <cstddef>
#include <iterator>
#include <set>
#include <system_error>
#include <utility>

namespace velkotx::host {

namespace {

constexpr std::size_t deepestNesting = 64;

// How far the parser has read.
struct Progress {
    int line = 1;
    int lineBefore = 1;  // of the last character

    void pass(char character) {
        lineBefore = line;
        if (character == '\n')
            ++line;
    }
};

// Iterates over the text and counts its lines.
class CountingIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(const char* position, Progress* progress) : position_(position), progress_(progress) {}

    reference operator*() const { return *position_; }
    CountingIterator& operator++() {
        progress_->pass(*position_);
        ++position_;
        return *this;
    }
    CountingIterator operator++(int) {
        CountingIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const CountingIterator& other) const { return position_ == other.position_; }
    bool operator!=(const CountingIterator& other) const { return position_ != other.position_; }

private:
    const char* position_;
    Progress* progress_;
};

// The parser's own number went through the locale; this one doesn't.
double plainNumber(std::string digits) {
    for (char& character : digits)
        if (std::string_view("0123456789+-eE").find(character) == std::string_view::npos)
            character = '.';
    double value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return result.ec == std::errc() ? value : 0;
}

// Builds the tree from what the parser tells.
class TreeBuilder {
public:
    TreeBuilder(JsonNode& root, const Progress& progress, std::vector<Mistake>& mistakes)
        : root_(root), progress_(progress), mistakes_(mistakes) {}

    bool null() { return add(JsonNode::Kind::Null, progress_.line) != nullptr; }

    bool boolean(bool value) {
        add(JsonNode::Kind::Boolean, progress_.line)->truth = value;
        return true;
    }

    bool number_integer(std::int64_t value) {
        const auto bits = static_cast<std::uint64_t>(value);
        return addInteger(value < 0, value < 0 ? std::uint64_t{0} - bits : bits, static_cast<double>(value));
    }

    bool number_unsigned(std::uint64_t value) { return addInteger(false, value, static_cast<double>(value)); }

    bool number_float(double, const std::string& digits) {
        add(JsonNode::Kind::Number, progress_.lineBefore)->number = plainNumber(digits);
        return true;
    }

    bool string(std::string& value) {
        add(JsonNode::Kind::Text, progress_.line)->text = std::move(value);
        return true;
    }

    bool binary(std::vector<std::uint8_t>&) { return false; }

    bool start_object(std::size_t) { return open(JsonNode::Kind::Object); }
    bool start_array(std::size_t) { return open(JsonNode::Kind::List); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }

    bool key(std::string& value) {
        repeated_ = !open_.back().keys.insert(value).second;
        if (repeated_)
            mistakes_.push_back({progress_.line, "", "the key \"" + value + "\" stands here twice"});
        open_.back().node->keys.push_back(std::move(value));
        return true;
    }

    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) {
        // "[json.exception.parse_error.101] parse error at line 3, column 5: syntax error ..."
        std::string text = error.what();
        for (const std::string_view head : {"] ", ": "})
            if (const auto found = text.find(head); found != std::string::npos)
                text.erase(0, found + head.size());
        mistakes_.push_back({progress_.line, "", "no JSON: " + text, true});
        return false;
    }

private:
    JsonNode* add(JsonNode::Kind kind, int line) {
        JsonNode* node = &root_;
        if (!open_.empty())
            node = &open_.back().node->items.emplace_back();
        node->kind = kind;
        node->line = line;
        node->repeated = std::exchange(repeated_, false);
        return node;
    }

    // The parser reads one character more to see the end of a number.
    bool addInteger(bool negative, std::uint64_t magnitude, double number) {
        JsonNode* node = add(JsonNode::Kind::Integer, progress_.lineBefore);
        node->negative = negative;
        node->magnitude = magnitude;
        node->number = number;
        return true;
    }

    bool open(JsonNode::Kind kind) {
        if (open_.size() == deepestNesting) {
            mistakes_.push_back({progress_.line, "", "nested deeper than " + std::to_string(deepestNesting) + " levels",
                                 true});
            return false;
        }
        open_.push_back({add(kind, progress_.line), {}});
        return true;
    }

    bool close() {
        open_.pop_back();
        return true;
    }

    struct Open {
        JsonNode* node;  // the last item of the one before it, so that none of them moves
        std::set<std::string> keys;
    };

    JsonNode& root_;
    const Progress& progress_;
    std::vector<Mistake>& mistakes_;
    std::vector<Open> open_;
    bool repeated_ = false;  // the next value stands under a key that came before
};

}  // namespace

JsonNode parseJson(std::string_view text, std::vector<Mistake>& mistakes) {
    JsonNode root;
    Progress progress;
    TreeBuilder builder(root, progress, mistakes);
    const char* end = text.data() + text.size();
    nlohmann::json::sax_parse(CountingIterator(text.data(), &progress), CountingIterator(end, &progress), &builder);
    return root;
}

}  // namespace velkotx::host
