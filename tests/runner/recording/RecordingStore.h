// The host's store of values that outlive a run.
#pragma once

#include "CallRecorder.h"

#include <otx/host/PersistenceHost.h>

#include <map>
#include <mutex>
#include <string>

namespace documents {

// Keeps what is saved until the document is done. Some names have a meaning of their own, as the README tells.
class RecordingStore : public PersistenceHost {
public:
    // The contents are a map with string keys.
    RecordingStore(CallRecorder& recorder, const COtxValue& contents);

    bool Load(const std::string& name, COtxValue& value) override;
    void Save(const std::string& name, const COtxValue& value) override;

private:
    CallRecorder& recorder_;
    std::mutex valuesLock_;  // guards values_
    std::map<std::string, COtxValue> values_;
};

}  // namespace documents
