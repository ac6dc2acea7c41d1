// Independent copies of values.
#include <otx/value/Functions.h>

#include "CopyMap.h"
#include "Refusal.h"

namespace OTX {

COtxValue CopyMap::copyOf(const COtxValue& original) {
    const COtxValueBehaviour* const behaviour = original.GetBehaviourReference().get();
    if (behaviour == nullptr) return original;
    if (const COtxValue* const made = find(behaviour)) return *made;
    otx::checkNesting();
    return behaviour->Copy(original, *this);
}

COtxValue DeepCopy(const COtxValue& value) {
    CopyMap copies;
    return copies.copyOf(value);
}

}  // namespace OTX
