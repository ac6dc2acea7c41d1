// The road from a service provider to the host.
#pragma once

#include <otx/provider/HostInterface.h>

#include <memory>

namespace velkotx {
class HostEventSink;
}

namespace ExternalServiceProvider {

// Made by the context for each host, which it holds weakly; providers keep the one that they were made with. Any thread.
class HostServiceInterface final : public HostInterface {
public:
    explicit HostServiceInterface(std::weak_ptr<velkotx::HostEventSink> host);

    // Hands the message to the host on the calling thread. If the host is gone, the message is dropped without a word.
    void sendRequest(const COtxValue& message) override;

private:
    std::weak_ptr<velkotx::HostEventSink> host;
};

}  // namespace ExternalServiceProvider
