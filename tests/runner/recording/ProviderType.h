// The provider type of the recording host.
#pragma once

#include "CallRecorder.h"
#include "RecordingProvider.h"

#include <memory>
#include <mutex>
#include <vector>

namespace documents {

// Known to all sequencers while it lives; outlives the one of its document. The type's name is "Lamp".
class ProviderType {
public:
    explicit ProviderType(CallRecorder& recorder);
    ProviderType(const ProviderType&) = delete;
    ProviderType& operator=(const ProviderType&) = delete;
    ~ProviderType();

private:
    COtxValue make(const RecordingProvider::Host& host, const std::string& constructor,
                   const std::map<std::string, COtxValue>& arguments);

    CallRecorder& recorder_;
    std::mutex providersLock_;  // guards providers_
    std::vector<std::shared_ptr<RecordingProvider>> providers_;
};

}  // namespace documents
