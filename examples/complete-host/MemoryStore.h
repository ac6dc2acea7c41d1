// A store of values that lasts as long as the process.
#pragma once

#include <otx/host/PersistenceHost.h>
#include <otx/value/COtxValue.h>

#include <map>
#include <mutex>
#include <string>

// Any thread: the lanes of a run come at once.
class MemoryStore : public PersistenceHost {
public:
    bool Load(const std::string& name, COtxValue& value) override;
    void Save(const std::string& name, const COtxValue& value) override;

private:
    std::mutex valuesLock_;  // guards values_
    std::map<std::string, COtxValue> values_;
};
