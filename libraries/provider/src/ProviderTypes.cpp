// What the host registers, and the folder that it names.
#include "ProviderTypes.h"

#include <otx/value/COtxException.h>

#include <utility>

namespace otx {

using ExternalServiceProvider::ProviderMaker;

ProviderTypes& ProviderTypes::instance() {
    static auto* const types = new ProviderTypes;
    return *types;
}

bool ProviderTypes::add(const std::string& type, ProviderMaker maker) {
    const std::lock_guard guard(typesLock_);
    return makers_.try_emplace(type, std::move(maker)).second;
}

bool ProviderTypes::remove(const std::string& type) {
    decltype(makers_)::node_type removed;  // dies behind the lock
    const std::lock_guard guard(typesLock_);
    removed = makers_.extract(type);
    return !removed.empty();
}

ProviderMaker ProviderTypes::find(const std::string& type) const {
    const std::lock_guard guard(typesLock_);
    const auto found = makers_.find(type);
    return found != makers_.end() ? found->second : ProviderMaker();
}

void ProviderTypes::setFolder(const std::string& folder) {
    const std::lock_guard guard(typesLock_);
    folder_ = folder;
}

std::string ProviderTypes::folder() const {
    const std::lock_guard guard(typesLock_);
    return folder_;
}

}  // namespace otx

namespace ExternalServiceProvider {

namespace {

[[noreturn]] void refuse(const std::string& text) {
    throw COtxException(OTX::Exceptions_e::ConfigurationException, text);
}

}  // namespace

void RegisterProviderType(const std::string& providerType, ProviderMaker maker) {
    if (providerType.empty()) refuse("A provider type needs a name");
    if (!maker) refuse("Provider type '" + providerType + "' needs a maker");
    if (!otx::ProviderTypes::instance().add(providerType, std::move(maker)))
        refuse("Provider type '" + providerType + "' is registered already");
}

bool UnregisterProviderType(const std::string& providerType) {
    return otx::ProviderTypes::instance().remove(providerType);
}

void SetProviderFolder(const std::string& folder) { otx::ProviderTypes::instance().setFolder(folder); }

}  // namespace ExternalServiceProvider
