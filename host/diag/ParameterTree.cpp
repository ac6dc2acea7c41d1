// The parameters of one message as a tree, and how steps lead through it.
#include "diag/ParameterTree.h"

#include "diag/DiagFailure.h"
#include "diag/KnownNames.h"

#include <algorithm>

namespace velkotx::host {

using OTX::Exceptions_e;

ParameterPlace ParameterTree::add(ParameterPlace parent, const ParameterDescription& description, std::int64_t item) {
    const ParameterPlace place = nodes_.size();
    const unsigned depth = nodes_[parent].depth + 1;
    if (depth > deepest)
        fail(Exceptions_e::DiagComException, "the parameters of '" + name_ + "' are nested too deeply");
    nodes_.push_back({&description, parent, item, depth, {}});
    nodes_[parent].children.push_back(place);
    return place;
}

bool ParameterTree::isRepetition(ParameterPlace place) const {
    const Node& node = nodes_[place];
    return node.description != nullptr && node.description->kind == ParameterKind::Repeated && node.item < 0;
}

bool ParameterTree::isComplex(ParameterPlace place) const {
    const Node& node = nodes_[place];
    return node.description == nullptr || node.description->kind != ParameterKind::Value;
}

ParameterPlace ParameterTree::child(ParameterPlace parent, const COtxValue& step) const {
    const std::vector<ParameterPlace>& children = nodes_[parent].children;
    if (step.Type() == OTX::ValueType::String) {
        if (const auto found = field(parent, step.String()))
            return *found;
        fail(Exceptions_e::UnknownTargetException,
             describe(parent) + " has no parameter '" + step.String() + "'" +
                 (isRepetition(parent) ? "; its items are numbered from 0" : knownNames(children, [this](ParameterPlace child) {
                     return nameOf(child);
                 })));
    }
    const long long index = step.Int();
    if (index < 0 || static_cast<std::size_t>(index) >= children.size())
        fail(Exceptions_e::UnknownTargetException, describe(parent) + " has no parameter number " + std::to_string(index) +
                                                       ", counted from 0; there are " + std::to_string(children.size()));
    return children[static_cast<std::size_t>(index)];
}

std::optional<ParameterPlace> ParameterTree::field(ParameterPlace parent, std::string_view name) const {
    if (isRepetition(parent))
        return std::nullopt;
    for (const ParameterPlace place : nodes_[parent].children) {
        if (nodes_[place].description->name == name)
            return place;
    }
    return std::nullopt;
}

std::optional<ParameterPlace> ParameterTree::counterOf(ParameterPlace place) const {
    const std::string& name = nodes_[place].description->countedBy;
    while (place != root) {
        place = nodes_[place].parent;
        if (const auto found = field(place, name); found && !isComplex(*found))
            return found;
    }
    return std::nullopt;
}

ParameterPlace ParameterTree::bySemantic(ParameterPlace from, const COtxValue& semantic) const {
    const std::string& wanted = semantic.String();
    std::vector<ParameterPlace> found;
    collect(from, wanted, found);
    if (found.empty())
        fail(Exceptions_e::UnknownTargetException, describe(from) + " has nothing of the semantic '" + wanted + "'");
    if (found.size() > 1)
        fail(Exceptions_e::AmbiguousSemanticException,
             describe(from) + " has several parameters of the semantic '" + wanted + "'");
    return found.front();
}

void ParameterTree::collect(ParameterPlace from, const std::string& semantic, std::vector<ParameterPlace>& found) const {
    if (isRepetition(from))
        return;
    for (const ParameterPlace place : nodes_[from].children) {
        if (nodes_[place].description->semantic == semantic)
            found.push_back(place);
        collect(place, semantic, found);
    }
}

std::string ParameterTree::nameOf(ParameterPlace place) const {
    const Node& node = nodes_[place];
    if (node.description == nullptr)
        return name_;
    return node.item < 0 ? node.description->name : node.description->name + '[' + std::to_string(node.item) + ']';
}

std::string ParameterTree::describe(ParameterPlace place) const {
    return place == root ? "'" + name_ + "'" : "parameter '" + pathOf(place) + "' of '" + name_ + "'";
}

std::string ParameterTree::pathOf(ParameterPlace place) const {
    std::string path;
    for (; place != root; place = nodes_[place].parent) {
        path.insert(0, nameOf(place));
        // An item's name has that of its repetition already.
        if (nodes_[place].item >= 0)
            place = nodes_[place].parent;
        if (nodes_[place].parent != root)
            path.insert(path.begin(), '.');
    }
    return path;
}

}  // namespace velkotx::host
