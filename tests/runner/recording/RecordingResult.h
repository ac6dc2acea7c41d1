// The result of one execution.
#pragma once

#include "Handle.h"

#include <otx/diag/IResult.h>

#include <vector>

namespace documents {

class RecordingResult : public Handle, public OTX::IResult {
public:
    RecordingResult(CallRecorder& recorder, std::string label, COtxValue service, std::vector<COtxValue> responses);

    OTX::IResult& IResult() override { return *this; }

    COtxValue GetDiagServiceFromResult() override;
    COtxValue GetResultState() override;
    COtxValue GetFirstResponse() override;
    COtxValue GetAllResponses() override;

private:
    const COtxValue service_;
    const std::vector<COtxValue> responses_;
};

}  // namespace documents
