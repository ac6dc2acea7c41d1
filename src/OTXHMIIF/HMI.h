// The conversation with the host about screens.
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

class Screen;

// Made by the context for each host, which it holds weakly. Any thread. No statement opens a screen so far.
class HMI {
public:
    explicit HMI(std::weak_ptr<velkotx::HostEventSink> host);
    HMI(const HMI&) = delete;
    HMI& operator=(const HMI&) = delete;
    ~HMI();

    void closeAll();

    // Takes a message of the host whose "eventType" begins with "HMI-". Throws std::out_of_range for a missing entry
    // and std::runtime_error for a screen that isn't open and for a type that nobody knows.
    void inputEvent(const COtxValue& message);

private:
    std::shared_ptr<Screen> getScreen(const std::string& name);

    std::weak_ptr<velkotx::HostEventSink> host;
    // Guards screens.
    std::recursive_mutex mutex;
    std::map<std::string, std::shared_ptr<Screen>> screens;
};

}  // namespace OTX
