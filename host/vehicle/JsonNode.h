// A JSON text as a tree that knows the line of each value.
#pragma once

#include <vehicle/Mistake.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velkotx::host {

struct JsonNode {
    enum class Kind { Null, Boolean, Integer, Number, Text, List, Object };

    Kind kind = Kind::Null;
    int line = 1;
    bool repeated = false;         // stands under a key of its object that came before
    bool truth = false;            // Boolean
    bool negative = false;         // Integer
    std::uint64_t magnitude = 0;   // Integer
    double number = 0;             // Integer and Number
    std::string text;              // Text
    std::vector<JsonNode> items;   // List and Object
    std::vector<std::string> keys;  // Object: of the items, in the order of the text
};

// The tree of a text. What isn't JSON, a key that comes twice and a nesting of more than 64 levels are mistakes.
JsonNode parseJson(std::string_view text, std::vector<Mistake>& mistakes);

}  // namespace velkotx::host
