// The result of one execution.
#include "RecordingResult.h"

#include "Answers.h"

#include <otx/value/COtxList.h>
#include <otx/value/COtxResultState.h>

#include <utility>

namespace documents {

RecordingResult::RecordingResult(CallRecorder& recorder, std::string label, COtxValue service,
                                 std::vector<COtxValue> responses)
    : Handle(recorder, std::move(label), OTX::ValueType::Result),
      service_(std::move(service)),
      responses_(std::move(responses)) {}

COtxValue RecordingResult::GetDiagServiceFromResult() {
    call("GetDiagServiceFromResult");
    return service_;
}

COtxValue RecordingResult::GetResultState() {
    call("GetResultState");
    return COtxResultState(COtxResultState::AllPositive);
}

COtxValue RecordingResult::GetFirstResponse() {
    call("GetFirstResponse");
    return responses_.empty() ? nothing() : responses_.front();
}

COtxValue RecordingResult::GetAllResponses() {
    call("GetAllResponses");
    return COtxList(responses_);
}

}  // namespace documents
