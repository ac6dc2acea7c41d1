// The table of provider types of the process.
#pragma once

#include <otx/provider/ProviderTypes.h>

#include <map>
#include <mutex>
#include <string>

namespace otx {

// Any thread.
class ProviderTypes {
public:
    // Never destroyed: Sequencers in static objects still ask it.
    static ProviderTypes& instance();

    // False for a type that is there.
    bool add(const std::string& type, ExternalServiceProvider::ProviderMaker maker);
    bool remove(const std::string& type);
    // An empty function for a type that isn't there. A copy: the type may be taken back while the maker runs.
    ExternalServiceProvider::ProviderMaker find(const std::string& type) const;

    void setFolder(const std::string& folder);
    std::string folder() const;

private:
    ProviderTypes() = default;

    // Guards all below.
    mutable std::mutex typesLock_;
    std::map<std::string, ExternalServiceProvider::ProviderMaker> makers_;
    std::string folder_;
};

}  // namespace otx
