// The maps in which the arguments of a procedure call travel.
#pragma once

#include <SmallVector.h>
#include <schema/Name.h>

#include <cstddef>
#include <utility>

namespace otxns {

// A map from parameter name to value or cell, in the order of the names' texts. Lives on the stack of one call, whose
// few entries need no allocation. The names are those of the document (or of the host's arguments) and outlive it.
template <class T>
class ArgumentMap {
public:
    struct Entry {
        Entry(const Name& key, T&& content) : name(&key), value(std::move(content)) {}
        const Name* name;
        T value;
    };

    // Keeps the entry that is there.
    void insert(const Name& name, T&& value) {
        if (entry(name) == nullptr) add(name, std::move(value));
    }
    void insert(Name&& name, T&& value) = delete;

    // Replaces the entry that is there.
    void assign(const Name& name, T&& value) {
        if (Entry* const found = entry(name))
            found->value = std::move(value);
        else
            add(name, std::move(value));
    }
    void assign(Name&& name, T&& value) = delete;

    // The value under that name, else null.
    const T* find(const Name& name) const {
        const Entry* const found = const_cast<ArgumentMap*>(this)->entry(name);
        return found != nullptr ? &found->value : nullptr;
    }

    Entry* begin() noexcept { return entries_.begin(); }
    Entry* end() noexcept { return entries_.end(); }
    const Entry* begin() const noexcept { return entries_.begin(); }
    const Entry* end() const noexcept { return entries_.end(); }
    bool empty() const noexcept { return entries_.empty(); }

private:
    Entry* entry(const Name& name) noexcept {
        for (Entry& candidate : entries_)
            if (*candidate.name == name) return &candidate;
        return nullptr;
    }

    void add(const Name& name, T&& value) {
        entries_.emplace_back(name, std::move(value));
        std::size_t place = entries_.size() - 1;
        while (place > 0 && name.text() < entries_[place - 1].name->text()) --place;
        if (place + 1 != entries_.size()) entries_.moveLastTo(place);
    }

    SmallVector<Entry, 4> entries_;
};

}  // namespace otxns
