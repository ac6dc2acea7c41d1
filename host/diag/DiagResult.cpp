// The result of one execution, as a sequence sees it.
#include "diag/DiagResult.h"

#include "diag/DiagResponse.h"
#include "diag/DiagServiceHandle.h"

#include <otx/value/COtxList.h>

#include <chrono>
#include <functional>
#include <utility>

namespace velkotx::host {

namespace {

using OTX::Exceptions_e;

std::string milliseconds(Clock::Duration time) {
    return std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(time).count()) + " ms";
}

std::string times(unsigned count) {
    std::string text;
    if (count > 1)
        text.append(" ").append(std::to_string(count)).append(" times");
    return text;
}

// Which kinds of responses there are.
struct Seen {
    bool positive = false;
    bool negative = false;
    bool invalid = false;

    void add(COtxResponseState::ResponseState state) {
        positive = positive || state == COtxResponseState::Positive;
        negative = negative || state == COtxResponseState::Negative;
        invalid = invalid || state == COtxResponseState::Invalid;
    }

    COtxResultState::ResultState state() const {
        if (invalid) return positive || negative ? COtxResultState::Invalid : COtxResultState::AllInvalid;
        if (negative) return positive ? COtxResultState::Negative : COtxResultState::AllNegative;
        return COtxResultState::AllPositive;
    }
};

}  // namespace

std::optional<DiagFailure> failureOf(const UdsOutcome& outcome, const std::string& channel) {
    switch (outcome.end) {
        case UdsOutcome::End::Silent:
            return DiagFailure{Exceptions_e::LossOfComException,
                               "no response from '" + channel + "' within " + milliseconds(outcome.waited)};
        case UdsOutcome::End::NeverSent:
            return DiagFailure{Exceptions_e::DiagComException,
                               "'" + channel + "' announced a response" + times(outcome.pending) +
                                   ", but none came within " + milliseconds(outcome.waited)};
        case UdsOutcome::End::LinkBroken:
            return DiagFailure{Exceptions_e::LossOfComException,
                               "the link to '" + channel + "' is down" +
                                   (outcome.complaint.empty() ? "" : ": " + outcome.complaint)};
        case UdsOutcome::End::Stopped:
            return DiagFailure{Exceptions_e::InvalidStateException,
                               "the communication with '" + channel + "' was stopped before a response came"};
        case UdsOutcome::End::Closed:
            return DiagFailure{Exceptions_e::InvalidStateException,
                               "the channel to '" + channel + "' was closed before a response came"};
        case UdsOutcome::End::Crowded:
            return DiagFailure{Exceptions_e::InvalidStateException,
                               "too many requests wait for the link to '" + channel + "'"};
        default: return std::nullopt;
    }
}

std::shared_ptr<const ResultData> makeResult(const std::shared_ptr<const ServiceDescription>& service,
                                             UdsOutcome&& outcome, const std::string& channel) {
    auto result = std::make_shared<ResultData>();
    result->failure = failureOf(outcome, channel);
    if (result->failure)
        return result;
    Seen seen;
    result->responses.reserve(outcome.responses.size());
    for (ReceivedPdu& received : outcome.responses) {
        auto response = makeResponse(service, std::move(received));
        seen.add(response->state());
        result->responses.emplace_back(std::shared_ptr<COtxValueBehaviour>(std::move(response)));
    }
    result->state = seen.state();
    return result;
}

std::shared_ptr<const ResultData> makeFailedResult(DiagFailure failure) {
    auto result = std::make_shared<ResultData>();
    result->failure = std::move(failure);
    return result;
}

DiagResult::DiagResult(std::shared_ptr<ServiceExecution> service, std::shared_ptr<const ResultData> data)
    : COtxValueBehaviour(OTX::ValueType::Result), service_(std::move(service)), data_(std::move(data)) {}

bool DiagResult::operator==(const COtxValueBehaviour* other) const {
    const auto* const result = dynamic_cast<const DiagResult*>(other);
    return result != nullptr && result->data_ == data_;
}

bool DiagResult::IsLessThan(const COtxValue& right) const {
    const auto* const result = dynamic_cast<const DiagResult*>(right.GetBehaviourReference().get());
    return result != nullptr ? std::less<>()(data_, result->data_) : COtxValueBehaviour::IsLessThan(right);
}

COtxValue DiagResult::GetDiagServiceFromResult() { return makeService(service_); }
COtxValue DiagResult::GetResultState() { return COtxResultState(data_->state); }

COtxValue DiagResult::GetFirstResponse() {
    if (data_->failure)
        fail(*data_->failure);
    if (data_->responses.empty())
        fail(Exceptions_e::DiagComException, "there is no response: the positive one was suppressed");
    return data_->responses.front();
}

COtxValue DiagResult::GetAllResponses() {
    if (data_->failure)
        fail(*data_->failure);
    return COtxList(data_->responses);
}

}  // namespace velkotx::host
