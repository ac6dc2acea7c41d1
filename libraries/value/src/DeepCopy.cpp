// Independent copies of values.
#include <otx/value/Functions.h>

#include "CopyMap.h"
#include "Descent.h"

namespace OTX {

using Native = COtxValueBehaviour::Native;

COtxValue CopyMap::copyOf(const COtxValue& original) {
    const COtxValueBehaviour* const behaviour = original.GetBehaviourReference().get();
    if (behaviour == nullptr) return original;
    if (const COtxValue* const made = find(behaviour)) return *made;
    // Numbers and texts are no step: there may be any number of them.
    const auto kind = behaviour->NativeKind();
    const bool holdsOthers = kind == Native::List || kind == Native::Map || kind == Native::None;
    if (!holdsOthers) return behaviour->Copy(original, *this);
    const otx::Descent descent;
    return behaviour->Copy(original, *this);
}

COtxValue DeepCopy(const COtxValue& value) {
    CopyMap copies;
    return copies.copyOf(value);
}

}  // namespace OTX
