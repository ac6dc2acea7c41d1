// The host's vehicle communication interfaces.
#include "RecordingComInterface.h"

#include "Answers.h"

#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>

#include <map>
#include <memory>
#include <vector>

namespace documents {

void RecordingComInterface::ActivateEthernet() { call("ActivateEthernet"); }

void RecordingComInterface::DeactivateEthernet() { call("DeactivateEthernet"); }

bool RecordingComInterface::IsEthernetActivated() {
    call("IsEthernetActivated");
    return true;
}

COtxValue RecordingComInterface::GetComInterfaceNameListFromEthernet(const std::string& option) {
    call("GetComInterfaceNameListFromEthernet", option);
    return COtxList(std::vector<COtxValue>{COtxString(label() + " over ethernet")});
}

bool RecordingComInterface::IsInterfaceConnected() {
    call("IsInterfaceConnected");
    return true;
}

COtxValue RecordingComInterface::GetComInterfaceProperties() {
    call("GetComInterfaceProperties");
    return COtxMap(std::map<COtxValue, COtxValue>{{COtxString("name"), COtxString(label())}});
}

COtxValue RecordingComInterface::GetComInterfaceResourceNameList() {
    call("GetComInterfaceResourceNameList");
    return COtxList(std::vector<COtxValue>{COtxString("CAN"), COtxString("Ethernet")});
}

double RecordingComInterface::GetBatteryVoltage() {
    call("GetBatteryVoltage");
    return 12.5;
}

bool RecordingComInterface::GetIgnitionState(std::int64_t pin) {
    call("GetIgnitionState", pin);
    return pin == 0;
}

void RecordingComInterface::CloseComInterface() { call("CloseComInterface"); }

ComInterface::CModuleList RecordingComInterfaces::GetModuleList(int connectionStatus) {
    recorder_.call("ComInterface", "GetModuleList", {asArgument(connectionStatus)});
    if (connectionStatus == 2) return {};
    return ComInterface::CModuleList({ComInterface::CModuleData("second"), ComInterface::CModuleData("first")});
}

std::string RecordingComInterfaces::GetDefaultComInterfaceName() {
    recorder_.call("ComInterface", "GetDefaultComInterfaceName", {});
    return "first";
}

COtxValue RecordingComInterfaces::GetComInterface(const std::string& name) {
    const COtxValue argument = COtxString(name);
    recorder_.call("ComInterface", "GetComInterface", {argument});
    if (isMissing(argument)) return nothing();
    if (name == "bare") return COtxValue(std::make_shared<RecordingComInterface>(recorder_, name));
    return COtxValue(std::make_shared<RecordingPduComInterface>(recorder_, name));
}

}  // namespace documents
