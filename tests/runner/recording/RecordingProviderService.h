// A service that a provider of the recording host runs.
#pragma once

#include "Handle.h"

#include <otx/diag/IServiceProvider.h>
#include <otx/provider/HostInterface.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace documents {

// What it does is chosen by its name, as the README tells. Any thread.
class RecordingProviderService : public Handle, public OTX::IServiceProviderService {
public:
    using Variables = std::map<std::string, std::shared_ptr<OtxVariable>>;

    RecordingProviderService(CallRecorder& recorder, std::string label, std::string service,
                             std::shared_ptr<ExternalServiceProvider::HostInterface> host);

    OTX::IServiceProviderService& ServiceProviderService() override { return *this; }

    COtxValue Terminate() override;
    COtxValue IsRunning() override;
    COtxValue FinishedEventSource() override;

    // To be called once.
    void begin(const Variables& inout, const Variables& out);
    // Ends the service, if it runs; its sources tell so.
    void finish();
    // Joins its thread. To be called once, when nobody calls the service any more.
    void end();

private:
    void write(const Variables& inout, const Variables& out) const;
    bool hasFinished();

    const std::string service_;
    const std::shared_ptr<ExternalServiceProvider::HostInterface> host_;
    std::mutex sourcesLock_;  // guards the two below
    std::vector<COtxValue> sources_;
    bool finished_ = false;
    std::thread thread_;
};

}  // namespace documents
