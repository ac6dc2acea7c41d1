// A hash table from name to a small value, by the identity of the name.
#pragma once

#include <schema/Name.h>

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace otxns {

// Grows only. The names are kept alive by whoever enters them. Not synchronised.
template <class Value>
class NameIndex {
public:
    // The value of that name, else null.
    const Value* find(const Name& name) const noexcept {
        if (slots_.empty()) return nullptr;
        const Slot& slot = slots_[placeOf(name.identity())];
        return slot.used ? &slot.value : nullptr;
    }

    // Replaces the value that is there.
    void assign(const Name& name, Value value) {
        if (2 * (used_ + 1) > slots_.size()) grow();
        Slot& slot = slots_[placeOf(name.identity())];
        if (!slot.used) ++used_;
        slot = {name.identity(), value, true};
    }

    std::size_t size() const noexcept { return used_; }

private:
    struct Slot {
        const void* key = nullptr;
        Value value{};
        bool used = false;
    };

    // The slot of the key, or the vacant one where it belongs. The table is never full.
    std::size_t placeOf(const void* key) const noexcept {
        const std::size_t mask = slots_.size() - 1;
        auto place = static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(key) * 0x9E3779B97F4A7C15u >> 32) & mask;
        while (slots_[place].used && slots_[place].key != key) place = (place + 1) & mask;
        return place;
    }

    void grow() {
        std::vector<Slot> former(slots_.empty() ? 16 : 2 * slots_.size());
        former.swap(slots_);
        for (const Slot& slot : former)
            if (slot.used) slots_[placeOf(slot.key)] = slot;
    }

    std::vector<Slot> slots_;
    std::size_t used_ = 0;
};

}  // namespace otxns
