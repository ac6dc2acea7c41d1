// The result of one execution, as a sequence sees it.
#pragma once

#include "diag/DiagFailure.h"
#include "diag/UdsExchange.h"

#include <vehicle/ServiceDescription.h>

#include <otx/diag/IResult.h>
#include <otx/value/COtxResultState.h>
#include <otx/value/COtxValueBehaviour.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velkotx::host {

class ServiceExecution;

// What an execution came to. Immutable; knows nothing of the service, so that the service may keep it.
struct ResultData {
    std::vector<COtxValue> responses;
    COtxResultState::ResultState state = COtxResultState::AllFailed;
    // Why there are no responses; nothing when that is as it should be.
    std::optional<DiagFailure> failure;
};

// Why an exchange has no responses, nothing when it has them or needs none. The name is the channel's.
std::optional<DiagFailure> failureOf(const UdsOutcome& outcome, const std::string& channel);

// All responses of one kind make ALL_POSITIVE, ALL_NEGATIVE or ALL_INVALID; of several kinds the worst tells: INVALID or
// NEGATIVE. A suppressed positive response is ALL_POSITIVE without responses; a failure is ALL_FAILED.
std::shared_ptr<const ResultData> makeResult(const std::shared_ptr<const ServiceDescription>& service,
                                             UdsOutcome&& outcome, const std::string& channel);
std::shared_ptr<const ResultData> makeFailedResult(DiagFailure failure);

// Behind values of type Result. Never changes; any thread. Handles on one result are equal.
class DiagResult final : public COtxValueBehaviour, public OTX::IResult {
public:
    DiagResult(std::shared_ptr<ServiceExecution> service, std::shared_ptr<const ResultData> data);

    OTX::IResult& IResult() override { return *this; }
    COtxValue ToString() override { return GetResultState(); }
    bool operator==(const COtxValueBehaviour* other) const override;
    bool IsLessThan(const COtxValue& right) const override;

    COtxValue GetDiagServiceFromResult() override;
    COtxValue GetResultState() override;
    // Both throw the failure of an execution that has one: kind 15 where nothing came in time or the link broke down,
    // kind 7 where a response was announced and never came, kind 12 where the channel was closed.
    // The first throws kind 7 also when the positive response was suppressed.
    COtxValue GetFirstResponse() override;
    COtxValue GetAllResponses() override;

private:
    const std::shared_ptr<ServiceExecution> service_;
    const std::shared_ptr<const ResultData> data_;
};

}  // namespace velkotx::host
