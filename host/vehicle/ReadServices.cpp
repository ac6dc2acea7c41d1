// Reads the services of a control unit.
#include "vehicle/ReadParts.h"

#include "diag/UdsText.h"

#include <algorithm>
#include <span>

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

// An answer to another service would be passed over. Of messages whose first bytes are parameters nothing is known.
void checkService(const JsonPlace& place, const MessageDescription& request, const MessageDescription& response) {
    const std::size_t at = isNegative(response) ? 1 : 0;
    if (request.prefix.empty() || response.prefix.size() <= at)
        return;
    const auto wanted = static_cast<std::uint8_t>(request.prefix[0] + (at == 0 ? 0x40 : 0));
    if (response.prefix[at] != wanted)
        place.mistake("a response to " + hexText(std::span(request.prefix).first(1)) + " begins with " +
                      (at == 0 ? "" : "7F ") + hexText(std::span(&wanted, 1)));
}

// Whether every answer that one of them could describe is taken by another in front of it.
bool hides(const MessageDescription& before, const MessageDescription& message) {
    return !hasConstants(before.parameters) && before.prefix.size() <= message.prefix.size() &&
           std::equal(before.prefix.begin(), before.prefix.end(), message.prefix.begin());
}

void readResponses(ObjectReader& in, const char* key, bool negative, const MessageDescription& request,
                   std::vector<MessageDescription>& target) {
    const auto list = in.find(key);
    if (!list)
        return;
    std::vector<std::size_t> sound;  // which of them have no mistake
    for (const JsonPlace& place : list->items()) {
        const std::size_t mistakes = place.context().mistakes.size();
        MessageDescription& response = target.emplace_back();
        readJson(place, response);
        if (place.context().mistakes.size() != mistakes)
            continue;
        expectPrefix(place, response, "response");
        if (isNegative(response) != negative)
            place.mistake(negative ? "a negative response has to begin with 7F"
                                   : "a positive response can't begin with 7F");
        else
            checkService(place, request, response);
        if (place.context().mistakes.size() != mistakes)
            continue;
        const auto hiding = std::find_if(sound.begin(), sound.end(),
                                         [&](std::size_t before) { return hides(target[before], response); });
        if (hiding != sound.end())
            place.mistake("never chosen: all that fits it fits the response \"" + target[*hiding].name + "\" before it");
        sound.push_back(target.size() - 1);
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
    if (const auto parameters = in.find("parameters"); parameters && parameters->is(JsonNode::Kind::List))
        checkLayout(*parameters, target);
    in.finish();
    return true;
}

bool readJson(const JsonPlace& place, ServiceDescription& target) {
    ObjectReader in(place);
    in.name(target.name);
    in.optional("semantic", target.semantic);
    in.optional("functional", target.functional);
    if (const auto request = in.require("request")) {
        const std::size_t mistakes = place.context().mistakes.size();
        readJson(*request, target.request);
        if (place.context().mistakes.size() == mistakes) {
            expectPrefix(*request, target.request, "request");
            checkOverlap(*request, target.request);
        }
    }
    if (target.request.name.empty())
        target.request.name = target.name;
    readResponses(in, "positive", false, target.request, target.positive);
    readResponses(in, "negative", true, target.request, target.negative);
    if (target.negative.empty())
        target.negative.push_back(usualNegativeResponse());
    in.finish();
    return true;
}

}  // namespace velkotx::host
