// Checks how the parameters of a message lie in its PDU.
#include "vehicle/ReadParts.h"

#include <algorithm>

namespace velkotx::host {

namespace {

constexpr std::size_t mostRepetitions = 0xFFFF;  // of structures inside structures, all together

// The parameters in front of one, on its level and those around it, that can count it.
using Counters = std::vector<const ParameterDescription*>;

bool canCount(const ParameterDescription& parameter) {
    return parameter.kind == ParameterKind::Value && parameter.coding == Coding::Unsigned &&
           parameter.scaling.isIdentity();
}

void checkCount(const JsonPlace& place, const ParameterDescription& parameter, const Counters& counters) {
    for (const ParameterDescription* counter : counters)
        if (counter->name == parameter.countedBy)
            return;
    place.mistake("no unsigned parameter named \"" + parameter.countedBy + "\" stands before it");
}

// Whether what follows a parameter has no known place.
bool reachesEnd(const ParameterDescription& parameter) {
    if (parameter.extent == Extent::Rest)
        return true;
    return parameter.kind != ParameterKind::Value && !parameter.fields.empty() && reachesEnd(parameter.fields.back());
}

void checkLevel(const JsonPlace& list, const std::vector<ParameterDescription>& parameters, std::size_t prefix,
                Counters counters, std::size_t repetitions) {
    const auto places = list.items();
    for (std::size_t index = 0; index < parameters.size(); ++index) {
        const ParameterDescription& parameter = parameters[index];
        const JsonPlace& place = places[index];
        if (parameter.bytePosition && *parameter.bytePosition < prefix)
            place.mistake("lies in the message's prefix");
        if (parameter.extent == Extent::Counted)
            checkCount(place, parameter, counters);
        if (reachesEnd(parameter) && index + 1 < parameters.size())
            place.mistake("nothing can follow what reaches to the end of the message");
        if (parameter.kind == ParameterKind::Repeated && !parameter.fields.empty() &&
            reachesEnd(parameter.fields.back()))
            place.mistake("a field that reaches to the end of the message can't be repeated");
        if (parameter.kind != ParameterKind::Value) {
            const std::size_t inner = repetitions * std::max<std::size_t>(parameter.count, 1);
            if (inner > mostRepetitions) {
                place.mistake("more than 65535 repetitions");
                continue;
            }
            const JsonNode& node = place.node();
            for (std::size_t member = 0; member < node.keys.size(); ++member)
                if (node.keys[member] == "fields" && !node.items[member].repeated &&
                    node.items[member].kind == JsonNode::Kind::List)
                    checkLevel(place.inside(node.items[member], "fields"), parameter.fields, 0, counters, inner);
        }
        if (canCount(parameter))
            counters.push_back(&parameter);
    }
}

}  // namespace

void checkLayout(const JsonPlace& parameters, const MessageDescription& message) {
    checkLevel(parameters, message.parameters, message.prefix.size(), {}, 1);
}

}  // namespace velkotx::host
