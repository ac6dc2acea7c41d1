// A service that answers from memory: request, result and response are there before it is executed.
#pragma once

#include "MemoryParameters.h"

#include <otx/diag/IDiagService.h>
#include <otx/diag/IRequest.h>
#include <otx/diag/IResponse.h>
#include <otx/diag/IResult.h>
#include <otx/event/COtxSignalEventSource.h>
#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxResponseState.h>
#include <otx/value/COtxResultState.h>

namespace bench {

class MemoryRequest : public COtxValueBehaviour, public OTX::IRequest {
public:
    MemoryRequest()
        : COtxValueBehaviour(OTX::ValueType::Request),
          container_({{"First", COtxInt(0)}, {"Second", COtxInt(0)}, {"Third", COtxInt(0)}}) {}

    OTX::IRequest& Request() override { return *this; }
    bool IsContainer() const override { return true; }
    OTX::IParameterContainer& Container() override { return container_; }
    void SetPdu(const COtxValue&) override {}

private:
    MemoryContainer container_;
};

class MemoryResponse : public COtxValueBehaviour, public OTX::IResponse {
public:
    MemoryResponse()
        : COtxValueBehaviour(OTX::ValueType::Response),
          container_({{"Speed", COtxFloat(780.0)},
                      {"Load", COtxFloat(55.0)},
                      {"Coolant", COtxFloat(88.5)},
                      {"Gear", COtxString("forward")},
                      {"Starts", COtxInt(1042)}}) {}

    const OTX::IResponse& IResponse() const override { return *this; }
    bool IsContainer() const override { return true; }
    OTX::IParameterContainer& Container() override { return container_; }

    COtxValue GetComChannelIdentifier() const override { return {}; }
    COtxValue GetResponseName() const override { return name_; }
    COtxValue GetResponseState() const override { return COtxResponseState(COtxResponseState::Positive); }
    COtxValue GetResponseTimestamp() const override { return {}; }
    bool IsPositive() const override { return true; }

private:
    const COtxValue name_ = COtxString("Measurements");
    MemoryContainer container_;
};

class MemoryResult : public COtxValueBehaviour, public OTX::IResult {
public:
    MemoryResult() : COtxValueBehaviour(OTX::ValueType::Result) {}

    OTX::IResult& IResult() override { return *this; }

    COtxValue GetDiagServiceFromResult() override { return {}; }
    COtxValue GetResultState() override { return COtxResultState(COtxResultState::AllPositive); }
    COtxValue GetFirstResponse() override { return response_; }
    COtxValue GetAllResponses() override { return responses_; }

private:
    const COtxValue response_{std::make_shared<MemoryResponse>()};
    const COtxValue responses_ = COtxList(std::vector<COtxValue>{response_});
};

// Its execution has ended when Execute returns. The event carries the result instead of the service, which would hold
// itself otherwise: the sequencer looks at neither.
class MemoryService : public COtxValueBehaviour, public OTX::IDiagService {
public:
    MemoryService() : COtxValueBehaviour(OTX::ValueType::DiagService) {}

    OTX::IDiagService& DiagService() override { return *this; }

    COtxValue EventSource() override { return source_; }
    void Execute(bool) override { source_.EventSource().Put(result_); }
    COtxValue GetAllResultsAndClear() override { return COtxList(); }
    COtxValue GetDiagServiceName() override { return COtxString("ReadMeasurements"); }
    COtxValue GetRequest() override { return request_; }
    COtxValue GetFirstResult() override { return result_; }
    COtxValue GetAllResults() override { return COtxList(); }
    void StartRepeatedExecution() override {}
    void StopRepeatedExecution() override {}
    void SetRepetitionTime(const COtxValue&) override {}
    COtxValue GetRepetitionTime() override { return {}; }

private:
    const COtxSignalEventSource source_{OTX::EventKind::DiagService};
    const COtxValue request_{std::make_shared<MemoryRequest>()};
    const COtxValue result_{std::make_shared<MemoryResult>()};
};

}  // namespace bench
