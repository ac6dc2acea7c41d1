// Independent copies of values.
#include <otx/value/Functions.h>

#include "CopyMap.h"
#include "Descent.h"

namespace OTX {

COtxValue CopyMap::copyOf(const COtxValue& original) {
    const COtxValueBehaviour* const behaviour = original.GetBehaviourReference().get();
    if (behaviour == nullptr) return original;
    if (const COtxValue* const made = find(behaviour)) return *made;
    const otx::Descent descent;
    return behaviour->Copy(original, *this);
}

COtxValue DeepCopy(const COtxValue& value) {
    CopyMap copies;
    return copies.copyOf(value);
}

}  // namespace OTX
