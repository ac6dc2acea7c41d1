// The report of a state variable's write.
#include <OTXCoreTerms/Content.h>
#include <OTXStateVariable/OtxStateVariable.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>
#include <velkotx/HostEventSink.h>

#include <map>

void OtxStateVariable::Set(const COtxValue& value) {
    OtxVariable::Set(value);
    const COtxValue snapshot = otxns::lookAt(value, *context, [&] { return OTX::DeepCopy(value); });
    snapshot.SetOTXJSON(true);
    const COtxMap message(std::map<const std::string, COtxValue>{
        {"eventType", COtxString("StateVariableChanged")}, {"name", COtxString(*name)}, {"value", snapshot}});
    context->Host()->sendRequest(message);
}
