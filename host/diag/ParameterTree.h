// The parameters of one message as a tree, and how steps lead through it.
#pragma once

#include <vehicle/ServiceDescription.h>

#include <otx/value/COtxValue.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velkotx::host {

// A node's number; it stays while the tree grows. 0 is the message itself.
using ParameterPlace = std::size_t;

// Not locked.
class ParameterTree {
public:
    static constexpr ParameterPlace root = 0;

    struct Node {
        const ParameterDescription* description = nullptr;  // of the message itself none
        ParameterPlace parent = root;
        std::int64_t item = -1;  // which one of a repetition this is; -1 for what is no such item
        unsigned depth = 0;
        std::vector<ParameterPlace> children;
    };

    // Levels of structures within each other; everything that walks down a tree relies on it.
    static constexpr unsigned deepest = 64;

    // The name is the message's; it and the descriptions must outlive the tree.
    explicit ParameterTree(const std::string& name) : name_(name), nodes_(1) {}

    // Throws kind 7 for what is too deep.
    ParameterPlace add(ParameterPlace parent, const ParameterDescription& description, std::int64_t item = -1);

    const Node& operator[](ParameterPlace place) const { return nodes_[place]; }
    std::size_t size() const noexcept { return nodes_.size(); }

    // Whether the children are the items of a repetition, and not fields with names.
    bool isRepetition(ParameterPlace place) const;
    // No value of its own.
    bool isComplex(ParameterPlace place) const;
    // Throws kind 8: there is none.
    ParameterPlace child(ParameterPlace parent, const COtxValue& step) const;
    std::optional<ParameterPlace> field(ParameterPlace parent, std::string_view name) const;
    // The parameter that says how long, or how many, another one is: beside it or further out.
    std::optional<ParameterPlace> counterOf(ParameterPlace place) const;
    // Of the fields below, down to repetitions. Throws kind 8 when there is none and kind 9 when there are several.
    ParameterPlace bySemantic(ParameterPlace from, const COtxValue& semantic) const;

    // "cells[2]" for an item.
    std::string nameOf(ParameterPlace place) const;
    // For messages: "parameter 'cells[2].voltage' of 'BatteryState'".
    std::string describe(ParameterPlace place) const;

private:
    void collect(ParameterPlace from, const std::string& semantic, std::vector<ParameterPlace>& found) const;
    std::string pathOf(ParameterPlace place) const;

    const std::string& name_;
    std::vector<Node> nodes_;
};

}  // namespace velkotx::host
