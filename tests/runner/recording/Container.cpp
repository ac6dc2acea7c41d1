// The parameters of a request, response or complex parameter.
#include "Container.h"

#include "Answers.h"
#include "RecordingParameter.h"

#include <otx/value/COtxList.h>

#include <memory>
#include <vector>

namespace documents {

void Container::SetParameterValueBySemantic(const COtxValue& semantic, const COtxValue& value) {
    owner_.call("SetParameterValueBySemantic", semantic, value);
}

COtxValue Container::GetParameterBySemantic(const COtxValue& semantic) {
    owner_.call("GetParameterBySemantic", semantic);
    return isMissing(semantic) ? nothing() : parameter("@" + textOf(semantic));
}

COtxValue Container::GetParameterByPath(const COtxValue& path) {
    owner_.call("GetParameterByPath", path);
    const std::vector<COtxValue>& steps = path.List();
    if (!steps.empty() && isMissing(steps.front())) return nothing();
    std::string joined;
    for (const COtxValue& step : steps) joined += (joined.empty() ? "" : "/") + textOf(step);
    return parameter(joined);
}

COtxValue Container::GetParameterByStep(const COtxValue& step) {
    owner_.call("GetParameterByStep", step);
    return isMissing(step) ? nothing() : parameter(textOf(step));
}

COtxValue Container::GetParameterAsList() {
    owner_.call("GetParameterAsList");
    return COtxList(std::vector<COtxValue>{parameter("p1"), parameter("p2")});
}

COtxValue Container::parameter(const std::string& path) const {
    return COtxValue(std::make_shared<RecordingParameter>(owner_.recorder(), owner_.label() + '/' + path));
}

}  // namespace documents
