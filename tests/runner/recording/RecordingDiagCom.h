// The host's way to control units.
#pragma once

#include "CallRecorder.h"
#include "Services.h"

#include <otx/host/DiagComHost.h>

#include <memory>
#include <string>
#include <vector>

namespace documents {

class RecordingDiagCom : public DiagComHost {
public:
    RecordingDiagCom(CallRecorder& recorder, Services& services) : recorder_(recorder), services_(services) {}

    COtxValue GetComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName,
                            const COtxValue& performVariantSelection) override;
    COtxValue GetComChannelFromComInterface(const std::shared_ptr<ComInterface::IPduComInterface>& comInterface,
                                            const COtxValue& identifier, const COtxValue& ecuVariantName,
                                            const COtxValue& performVariantSelection) override;
    COtxValue CreateComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName) override;
    COtxValue CreateComChannelFromComInterface(const std::shared_ptr<ComInterface::IPduComInterface>& comInterface,
                                               const COtxValue& identifier, const COtxValue& ecuVariantName) override;

private:
    COtxValue channel(const char* operation, const COtxValue& identifier, const std::vector<COtxValue>& arguments);

    CallRecorder& recorder_;
    Services& services_;
};

}  // namespace documents
