// Reads the interfaces between the tester and the vehicle.
#include "vehicle/ReadParts.h"

namespace velkotx::host {

namespace {

void readPin(const JsonPlace& place, IgnitionPin& target) {
    ObjectReader in(place);
    std::uint32_t pin = 0;
    in.required("pin", pin);
    target.pin = pin;
    in.required("state", target.state);
    in.finish();
}

// An object of name to value, each read by `read`.
template <typename Value, typename Read>
void readMap(ObjectReader& in, const char* key, std::map<std::string, Value>& target, Read read) {
    const auto place = in.find(key);
    if (!place || !place->expect(JsonNode::Kind::Object, "an object"))
        return;
    const JsonNode& node = place->node();
    for (std::size_t index = 0; index < node.items.size(); ++index)
        read(place->inside(node.items[index], node.keys[index]), target[node.keys[index]]);
}

void readEthernet(const JsonPlace& place, EthernetDescription& target) {
    ObjectReader in(place);
    target.available = true;
    in.optional("available", target.available);
    in.optional("activated", target.activated);
    readMap(in, "interfaces", target.interfaces,
            [](const JsonPlace& item, std::vector<std::string>& names) { readJson(item, names); });
    in.finish();
}

}  // namespace

bool readJson(const JsonPlace& place, ComInterfaceDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    if (const auto status = in.find("status"))
        readWord<InterfaceStatus>(*status,
                                  {{"connected", InterfaceStatus::Connected},
                                   {"current", InterfaceStatus::Current},
                                   {"notConnected", InterfaceStatus::NotConnected}},
                                  target.status);
    in.optional("batteryVoltage", target.batteryVoltage);
    if (const auto pins = in.find("ignition")) {
        for (const JsonPlace& item : pins->items())
            readPin(item, target.ignition.emplace_back());
        if (pins->is(JsonNode::Kind::List))
            expectUnique(*pins, target.ignition, [](const auto& pin) { return pin.pin; }, "pin");
    }
    if (const auto ethernet = in.find("ethernet"))
        readEthernet(*ethernet, target.ethernet);
    readMap(in, "properties", target.properties,
            [](const JsonPlace& item, PlainValue& value) { readJson(item, value); });
    in.optional("resources", target.resources);
    in.finish();
    return true;
}

bool readJson(const JsonPlace& place, FunctionalGroupDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    in.required("address", target.address);
    in.finish();
    return true;
}

}  // namespace velkotx::host
