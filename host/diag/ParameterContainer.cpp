// What holds parameters, as a sequence sees it.
#include "diag/ParameterContainer.h"

#include "diag/DiagFailure.h"
#include "diag/DiagParameter.h"

#include <otx/value/COtxList.h>

#include <utility>
#include <vector>

namespace velkotx::host {

ParameterContainer::ParameterContainer(std::shared_ptr<MessageParameters> parameters, ParameterPlace place)
    : parameters_(std::move(parameters)), place_(place) {}

void ParameterContainer::SetParameterValueBySemantic(const COtxValue& semantic, const COtxValue& value) {
    parameters_->set(parameters_->bySemantic(place_, semantic), value);
}

COtxValue ParameterContainer::GetParameterBySemantic(const COtxValue& semantic) {
    return makeParameter(parameters_, parameters_->bySemantic(place_, semantic));
}

COtxValue ParameterContainer::GetParameterByPath(const COtxValue& path) {
    const std::vector<COtxValue>& steps = path.List();
    if (steps.empty())
        fail(OTX::Exceptions_e::UnknownTargetException, "a path without steps names no parameter");
    ParameterPlace place = place_;
    for (const COtxValue& step : steps)
        place = parameters_->child(place, step);
    return makeParameter(parameters_, place);
}

COtxValue ParameterContainer::GetParameterByStep(const COtxValue& step) {
    return makeParameter(parameters_, parameters_->child(place_, step));
}

COtxValue ParameterContainer::GetParameterAsList() {
    std::vector<COtxValue> parameters;
    for (const ParameterPlace child : parameters_->children(place_))
        parameters.push_back(makeParameter(parameters_, child));
    return COtxList(std::move(parameters));
}

}  // namespace velkotx::host
