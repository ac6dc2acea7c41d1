// A store of values that lasts as long as the process.
#include "MemoryStore.h"

#include <otx/value/Functions.h>

bool MemoryStore::Load(const std::string& name, COtxValue& value) {
    const std::lock_guard guard(valuesLock_);
    const auto found = values_.find(name);
    if (found == values_.end()) return false;
    value = OTX::DeepCopy(found->second);  // the sequence may change what it gets
    return true;
}

void MemoryStore::Save(const std::string& name, const COtxValue& value) {
    const COtxValue copy = OTX::DeepCopy(value);  // the sequence goes on changing what it gave
    const std::lock_guard guard(valuesLock_);
    values_.insert_or_assign(name, copy);
}
