// Reads the services of a control unit.
#include "vehicle/ReadParts.h"

namespace velkotx::host {

namespace {

MessageDescription usualNegativeResponse() {
    ParameterDescription service;
    service.name = "RequestedService";
    service.semantic = "SERVICEIDRQ";
    ParameterDescription code;
    code.name = "ResponseCode";
    code.semantic = "NRC";
    return {"NegativeResponse", {0x7F}, {service, code}};
}

void expectPrefix(const JsonPlace& place, const MessageDescription& message, const char* what) {
    if (message.prefix.empty() && message.parameters.empty())
        place.mistake(std::string("a ") + what + " without any byte: expected a \"prefix\"");
}

bool isNegative(const MessageDescription& message) {
    return !message.prefix.empty() && message.prefix.front() == 0x7F;
}

void readResponses(ObjectReader& in, const char* key, bool negative, std::vector<MessageDescription>& target) {
    const auto list = in.find(key);
    if (!list)
        return;
    readJson(*list, target);
    const auto places = list->items();
    for (std::size_t index = 0; index < places.size(); ++index) {
        expectPrefix(places[index], target[index], "response");
        if (isNegative(target[index]) != negative)
            places[index].mistake(negative ? "a negative response has to begin with 7F"
                                           : "a positive response can't begin with 7F");
    }
    expectUnique(*list, target, [](const MessageDescription& message) { return message.name; }, "name");
}

}  // namespace

bool readJson(const JsonPlace& place, MessageDescription& target) {
    ObjectReader in(place);
    in.optional("name", target.name);
    in.optional("prefix", target.prefix);
    readUniqueList(in, "parameters", target.parameters,
                   [](const ParameterDescription& parameter) { return parameter.name; }, "name");
    if (const auto parameters = in.find("parameters"))
        checkLayout(*parameters, target);
    in.finish();
    return true;
}

bool readJson(const JsonPlace& place, ServiceDescription& target) {
    ObjectReader in(place);
    in.required("name", target.name);
    in.optional("semantic", target.semantic);
    in.optional("functional", target.functional);
    if (const auto request = in.require("request")) {
        readJson(*request, target.request);
        expectPrefix(*request, target.request, "request");
    }
    if (target.request.name.empty())
        target.request.name = target.name;
    readResponses(in, "positive", false, target.positive);
    readResponses(in, "negative", true, target.negative);
    if (target.negative.empty())
        target.negative.push_back(usualNegativeResponse());
    in.finish();
    return true;
}

}  // namespace velkotx::host
