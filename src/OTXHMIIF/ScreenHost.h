// The host as a screen sees it.
#pragma once

#include <otx/value/COtxValue.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace velkotx {
class HostEventSink;
}

namespace OTX {

// Makes the messages about one screen and sends them. Copies share the host, which is held weakly. Any thread.
class ScreenHost {
public:
    // The lock is the one of the containers' contents, and outlives the object.
    ScreenHost(std::weak_ptr<velkotx::HostEventSink> host, std::mutex& contentLock, std::string screen)
        : host_(std::move(host)), contentLock_(&contentLock), screen_(std::move(screen)) {}

    const std::string& screen() const { return screen_; }

    using Entries = std::map<const std::string, COtxValue>;

    // On the calling thread: "eventType", "screenName" and the further entries. False when the host is gone. Throws what
    // the host throws.
    bool send(const char* eventType, Entries entries = {}) const;

    // The value as it stands in a message. What a container holds is copied: lanes may change it while the host reads.
    COtxValue published(const COtxValue& value) const;

private:
    std::weak_ptr<velkotx::HostEventSink> host_;
    std::mutex* contentLock_;
    std::string screen_;
};

}  // namespace OTX
