// Values from JSON text.
#include <otx/value/Json.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>

#include "JsonTyped.h"
#include "Numbers.h"
#include "NumberValues.h"
#include "Refusal.h"
#include "TextValues.h"

namespace otx {

namespace {

constexpr std::size_t deepest = 10000;

// Reads the text and counts, so that a value that JSON allows and we don't can be told by its place.
class Cursor {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    Cursor(const char* place, const char** furthest) : place_(place), furthest_(furthest) {}
    reference operator*() const { return *place_; }
    Cursor& operator++() {
        *furthest_ = ++place_;
        return *this;
    }
    Cursor operator++(int) {
        const Cursor before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const Cursor& left, const Cursor& right) { return left.place_ == right.place_; }

private:
    const char* place_;
    const char** furthest_;
};

std::string placeIn(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t lineEnd = before.rfind('\n');
    const std::size_t column = before.size() - (lineEnd == std::string_view::npos ? 0 : lineEnd + 1);
    return "JSON, line " + std::to_string(line) + ", column " + std::to_string(column) + ": ";
}

// Builds the values from the parser's events; the parser itself doesn't recurse.
class Builder {
public:
    Builder(std::string_view text, const char** furthest) : text_(text), furthest_(furthest) {}

    bool null() { return put(COtxValue()); }
    bool boolean(bool value) { return put(makeBoolean(value)); }
    bool number_integer(std::int64_t value) { return put(makeInteger(value)); }
    bool number_unsigned(std::uint64_t value) {
        if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
            failHere("the integer is beyond 64 bits");
        return put(makeInteger(static_cast<long long>(value)));
    }
    // The parser's double went through the locale, its text only through the decimal point of that.
    bool number_float(double, const std::string& digits) {
        std::string number = digits;
        std::replace_if(
            number.begin(), number.end(),
            [](char character) { return std::string_view("+-0123456789eE").find(character) == std::string_view::npos; },
            '.');
        if (number.find_first_of(".eE") == std::string::npos) failHere("the integer is beyond 64 bits");
        const auto parsed = parseFloat(number);
        if (parsed.error) failHere("the number is beyond a Float");
        return put(makeFloat(parsed.value));
    }
    bool string(std::string& text) { return put(makeText(std::move(text))); }
    bool binary(std::vector<std::uint8_t>&) { return false; }

    bool start_object(std::size_t) { return open(true); }
    bool key(std::string& text) {
        open_.back().key = makeText(std::move(text));
        return true;
    }
    bool end_object() {
        std::map<COtxValue, COtxValue> entries = std::move(open_.back().entries);
        open_.pop_back();
        try {
            return put(typedJson(std::move(entries)));
        } catch (const JsonMismatch& mismatch) {
            failHere(mismatch.reason);
        }
    }
    bool start_array(std::size_t) { return open(false); }
    bool end_array() {
        std::vector<COtxValue> items = std::move(open_.back().items);
        open_.pop_back();
        return put(COtxList(std::move(items)));
    }

    template <class Error>
    bool parse_error(std::size_t position, const std::string&, const Error& error) {
        // The parser's message begins with its own name and the place, and ends with the reason.
        const std::string message = error.what();
        const std::size_t reason = message.find(": ", message.find("column"));
        fail(OTX::Exceptions_e::TypeMismatchException,
             placeIn(text_, position) + (reason == std::string::npos ? message : message.substr(reason + 2)));
    }

    COtxValue result;

private:
    struct Open {
        bool isObject;
        COtxValue key;
        std::map<COtxValue, COtxValue> entries;
        std::vector<COtxValue> items;
    };

    [[noreturn]] void failHere(const std::string& reason) const {
        fail(OTX::Exceptions_e::TypeMismatchException,
             placeIn(text_, static_cast<std::size_t>(*furthest_ - text_.data())) + reason);
    }

    bool open(bool isObject) {
        if (open_.size() >= deepest) failHere("the nesting is deeper than " + std::to_string(deepest));
        open_.push_back({isObject, {}, {}, {}});
        return true;
    }

    bool put(COtxValue value) {
        if (open_.empty())
            result = std::move(value);
        else if (open_.back().isObject)
            open_.back().entries.insert_or_assign(open_.back().key, std::move(value));
        else
            open_.back().items.push_back(std::move(value));
        return true;
    }

    std::string_view text_;
    const char** furthest_;
    std::vector<Open> open_;
};

}  // namespace

}  // namespace otx

COtxValue OTX::FromJSON(const std::string& text) {
    const char* furthest = text.data();
    otx::Builder builder(text, &furthest);
    nlohmann::json::sax_parse(otx::Cursor(text.data(), &furthest), otx::Cursor(text.data() + text.size(), &furthest),
                              &builder);
    return builder.result;
}
