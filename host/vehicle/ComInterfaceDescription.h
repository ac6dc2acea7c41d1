// The interfaces between the tester and the vehicle. Plain data.
#pragma once

#include <vehicle/Curve.h>
#include <vehicle/ServiceDescription.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace velkotx::host {

// Numbers as OTX has them.
enum class InterfaceStatus { Connected = 0, Current = 1, NotConnected = 2 };

struct EthernetDescription {
    bool available = false;  // whether the interface has an Ethernet line that can be activated
    bool activated = false;  // at the beginning
    // Names of the interfaces that are found over Ethernet, for each option string; "" for every other one.
    std::map<std::string, std::vector<std::string>> interfaces;
};

struct IgnitionPin {
    std::int64_t pin = 0;
    Curve state;  // on where it isn't 0
};

struct ComInterfaceDescription {
    std::string name;
    InterfaceStatus status = InterfaceStatus::Connected;
    Curve batteryVoltage;  // volt
    std::vector<IgnitionPin> ignition;
    EthernetDescription ethernet;
    std::map<std::string, PlainValue> properties;
    std::vector<std::string> resources;
};

}  // namespace velkotx::host
