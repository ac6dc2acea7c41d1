// A service provider of the recording host.
#pragma once

#include "Handle.h"
#include "RecordingProviderService.h"

#include <otx/diag/IServiceProvider.h>
#include <otx/provider/HostInterface.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace documents {

// What a service does is chosen by its name, as the README tells. Any thread.
class RecordingProvider : public Handle, public OTX::IServiceProvider {
public:
    using Host = std::shared_ptr<ExternalServiceProvider::HostInterface>;
    using Variables = std::map<std::string, std::shared_ptr<OtxVariable>>;

    RecordingProvider(CallRecorder& recorder, std::string label, Host host);

    OTX::IServiceProvider& ServiceProvider() override { return *this; }

    COtxValue Execute(const std::string& service, const std::map<std::string, COtxValue>& inArguments,
                      const Variables& inoutArguments, const Variables& outArguments) override;
    void Event(const COtxValue& eventType, const COtxValue& message) override;
    void Dispose() override;
    COtxValue IsDisposed() override;

    // Joins the threads of its services. To be called once, when nobody calls the provider any more.
    void end();

private:
    void refuseIfDisposed();

    const Host host_;
    std::mutex servicesLock_;  // guards all below
    std::vector<std::shared_ptr<RecordingProviderService>> services_;
    bool disposed_ = false;
};

}  // namespace documents
