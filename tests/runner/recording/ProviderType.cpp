// The provider type of the recording host.
#include "ProviderType.h"

#include "Argument.h"

#include <otx/provider/ProviderTypes.h>
#include <otx/value/COtxMap.h>
#include <otx/value/Functions.h>

namespace documents {

namespace {

constexpr const char* typeName = "Lamp";

}  // namespace

ProviderType::ProviderType(CallRecorder& recorder) : recorder_(recorder) {
    ExternalServiceProvider::RegisterProviderType(
        typeName, [this](const auto& host, const auto& constructor, const auto& arguments) {
            return make(host, constructor, arguments);
        });
}

ProviderType::~ProviderType() {
    ExternalServiceProvider::UnregisterProviderType(typeName);
    for (const auto& provider : providers_) provider->end();
}

COtxValue ProviderType::make(const RecordingProvider::Host& host, const std::string& constructor,
                             const std::map<std::string, COtxValue>& arguments) {
    std::map<const std::string, COtxValue> told;
    for (const auto& [name, value] : arguments) told.emplace(name, OTX::DeepCopy(value));
    recorder_.call(typeName, "make", {asArgument(constructor), COtxMap(told)});
    if (constructor == "greet")
        host->sendRequest(COtxMap(std::map<const std::string, COtxValue>{{"eventType", COtxString("ESP-Hello")}}));
    const std::lock_guard guard(providersLock_);
    const std::string label = "P" + std::to_string(providers_.size() + 1);
    providers_.push_back(std::make_shared<RecordingProvider>(recorder_, label, host));
    return COtxValue(providers_.back());
}

}  // namespace documents
