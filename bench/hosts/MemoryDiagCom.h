// A host that answers from memory, so that what remains is the sequencer's own share.
#pragma once

#include "MemoryService.h"

#include <otx/diag/IComChannel.h>
#include <otx/host/DiagComHost.h>
#include <otx/host/IPduComInterface.h>

namespace bench {

// All names are right, and all services are the same. Any thread.
class MemoryChannel : public COtxValueBehaviour, public OTX::IComChannel {
public:
    MemoryChannel() : COtxValueBehaviour(OTX::ValueType::ComChannel) {}

    OTX::IComChannel& ComChannel() override { return *this; }

    void CloseComChannel() override {}
    COtxValue CreateDiagServiceByName(const COtxValue&) override { return service(); }
    COtxValue CreateDiagServiceBySemantic(const COtxValue&) override { return service(); }
    COtxValue GetDiagServiceListBySemantic(const COtxValue&) override { return COtxList(); }
    void IdentifyAndSelectVariant() override {}
    COtxValue GetComChannelEcuVariantName() override { return COtxString(""); }
    COtxValue IsVariant() override { return COtxBool(false); }
    void SetComParameter(const COtxValue&, const COtxValue&) override {}
    COtxValue GetComParameterValue(const COtxValue&, OTX::ValueType) override { return {}; }
    COtxValue GetDefaultComParameterValue(const COtxValue&, OTX::ValueType) override { return {}; }
    COtxValue ExecuteHexDiagService(const COtxValue&, bool) override { return {}; }
    COtxValue ExecuteHexDiagServiceFunctional(const COtxValue&) override { return COtxList(); }
    void SetComplexComParameter(const COtxValue&) override {}
    COtxValue GetComplexComParameter(const COtxValue&) override { return {}; }
    COtxValue GetDefaultComplexComParameter(const COtxValue&) override { return {}; }
    COtxValue GetComChannelState() override { return {}; }
    void StartCommunication() override {}
    void StopCommunication() override {}

private:
    static COtxValue service() { return COtxValue(std::make_shared<MemoryService>()); }
};

class MemoryDiagCom : public DiagComHost {
public:
    COtxValue GetComChannel(const COtxValue&, const COtxValue&, const COtxValue&) override { return channel(); }
    COtxValue GetComChannelFromComInterface(const std::shared_ptr<ComInterface::IPduComInterface>&, const COtxValue&,
                                            const COtxValue&, const COtxValue&) override {
        return channel();
    }
    COtxValue CreateComChannel(const COtxValue&, const COtxValue&) override { return channel(); }
    COtxValue CreateComChannelFromComInterface(const std::shared_ptr<ComInterface::IPduComInterface>&, const COtxValue&,
                                               const COtxValue&) override {
        return channel();
    }

private:
    static COtxValue channel() { return COtxValue(std::make_shared<MemoryChannel>()); }
};

}  // namespace bench
