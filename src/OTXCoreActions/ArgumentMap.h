// The maps in which the arguments of a procedure call travel.
#pragma once

#include <SmallVector.h>
#include <schema/Name.h>

#include <algorithm>
#include <utility>

namespace otxns {

// A map from parameter name to value or cell, in the order of the names' texts. Lives on the stack of one call, whose
// few entries need no allocation. The names are those of the document (or of the host's arguments) and outlive it.
template <class T>
class ArgumentMap {
public:
    struct Entry {
        const Name* name;
        T value;
    };

    // Keeps the entry that is there.
    void insert(const Name& name, T value) {
        Entry* const place = lowerBound(name);
        if (!holds(place, name)) entries_.insert(place, {&name, std::move(value)});
    }
    void insert(Name&& name, T value) = delete;

    // Replaces the entry that is there.
    void assign(const Name& name, T value) {
        Entry* const place = lowerBound(name);
        if (holds(place, name))
            place->value = std::move(value);
        else
            entries_.insert(place, {&name, std::move(value)});
    }
    void assign(Name&& name, T value) = delete;

    // The value under that name, else null.
    const T* find(const Name& name) const {
        const auto found = std::find_if(begin(), end(), [&](const Entry& entry) { return *entry.name == name; });
        return found != end() ? &found->value : nullptr;
    }

    const Entry* begin() const noexcept { return entries_.begin(); }
    const Entry* end() const noexcept { return entries_.end(); }
    bool empty() const noexcept { return entries_.empty(); }

private:
    Entry* lowerBound(const Name& name) {
        return std::lower_bound(entries_.begin(), entries_.end(), name, [](const Entry& entry, const Name& wanted) {
            return entry.name->text() < wanted.text();
        });
    }
    bool holds(const Entry* place, const Name& name) const { return place != entries_.end() && *place->name == name; }

    SmallVector<Entry, 4> entries_;
};

}  // namespace otxns
