// The road from a service provider to the host.
#pragma once

#include <memory>

class COtxValue;

namespace velkotx {
class HostEventSink;
}

namespace ExternalServiceProvider {

// Made by the context for each host, which it holds weakly. Any thread.
class HostServiceInterface {
public:
    explicit HostServiceInterface(std::weak_ptr<velkotx::HostEventSink> host);

    // Hands the message to the host on the calling thread. If the host is gone, the message is dropped without a word.
    void sendRequest(const COtxValue& message);

private:
    std::weak_ptr<velkotx::HostEventSink> host;
};

}  // namespace ExternalServiceProvider
