// The copies that one deep copy has made.
#pragma once

#include <otx/value/COtxValue.h>

#include <unordered_map>

namespace OTX {

// Lives on the stack of the copy. Finds again what a value holds in several places.
class CopyMap {
public:
    // The copy of that behaviour so far, or nothing.
    const COtxValue* find(const COtxValueBehaviour* original) const {
        const auto found = copies_.find(original);
        return found == copies_.end() ? nullptr : &found->second;
    }
    // Called before the content is copied, so that content that leads back finds it.
    void add(const COtxValue& original, const COtxValue& copy) {
        // Held in one place only: nothing else can lead to it.
        if (original.GetBehaviourReference().use_count() > 1)
            copies_.emplace(original.GetBehaviourReference().get(), copy);
    }

    COtxValue copyOf(const COtxValue& original);

private:
    std::unordered_map<const COtxValueBehaviour*, COtxValue> copies_;
};

}  // namespace OTX
