// The words of run control, and the events of the host.
#include <OTXContext/OtxContext.h>
#include <OTXExternalServiceProvider/ProviderEvents.h>
#include <OTXHMIIF/HMI.h>
#include <Trace.h>
#include <VelkOTXe/Boundary.h>
#include <VelkOTXe/Sequencer_impl.h>
#include <otx/value/Functions.h>
#include <otx/value/IString.h>

#include <map>
#include <stdexcept>

namespace otxns {

COtxValue Sequencer_impl::Control(const std::string& command, const COtxValue& parameters) {
    // Number 7 has no word.
    static const std::map<std::string, int> numbers{
        {"stop", 0},   {"run", 1},    {"step", 2},      {"setbp", 3},   {"clearbp", 4},
        {"cancel", 5}, {"status", 6}, {"exception", 8}, {"closees", 9}, {"putes", 10}};
    OTX_TRACE(2, "Control: " << command);
    const auto found = numbers.find(command);
    if (found == numbers.end()) throw std::runtime_error("Invalid sequence control command: " + command);
    return context->Control(found->second, parameters);
}

void Sequencer_impl::SendEvent(const COtxValue& event) {
    if (context == nullptr) throw std::runtime_error("No context available");
    try {
        const std::string eventType = OTX::GetParameter(event, "eventType", OTX::ValueType::String).String();
        if (eventType.starts_with("HMI-")) {
            context->HMI().inputEvent(event);
            return;
        }
        if (eventType.starts_with("ESP-")) {
            ExternalServiceProvider::deliverEvent(*context, event);
            return;
        }
        throw std::runtime_error("Unknown event type: " + eventType);
    } catch (COtxValue& exception) {
        OTX_TRACE(0, "Uncaught OTX Sequence Exception: " << exception);
        leaveAsSequenceException(exception);
    }
}

}  // namespace otxns
