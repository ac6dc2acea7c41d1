// The host's store of values that outlive a run.
#include "RecordingStore.h"

#include "Argument.h"

#include <otx/value/COtxException.h>
#include <otx/value/Functions.h>

#include <stdexcept>

namespace documents {

namespace {

void failByName(const std::string& name) {
    if (name == "failing") throw std::runtime_error("the store fails");
    if (name == "otx-failing") throw COtxException(OTX::Exceptions_e::PersistenceException, "the store fails");
}

}  // namespace

RecordingStore::RecordingStore(CallRecorder& recorder, const COtxValue& contents) : recorder_(recorder) {
    for (const auto& [name, value] : OTX::ValMap(contents)) values_.emplace(name, value);
}

bool RecordingStore::Load(const std::string& name, COtxValue& value) {
    recorder_.call("Store", "Load", {asArgument(name)});
    failByName(name);
    const std::lock_guard guard(valuesLock_);
    const auto found = values_.find(name);
    if (found == values_.end() || name == "missing") return false;
    value = OTX::DeepCopy(found->second);
    return true;
}

void RecordingStore::Save(const std::string& name, const COtxValue& value) {
    // A copy, since writing down an argument leaves its mark in it.
    const COtxValue copy = OTX::DeepCopy(value);
    recorder_.call("Store", "Save", {asArgument(name), copy});
    failByName(name);
    const std::lock_guard guard(valuesLock_);
    values_.insert_or_assign(name, copy);
}

}  // namespace documents
