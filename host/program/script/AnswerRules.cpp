// Reads the rules of --answers.
#include "program/script/AnswerRules.h"

#include "program/Inputs.h"
#include "program/JsonMembers.h"
#include "program/UsageError.h"

#include <otx/value/Json.h>

#include <cstddef>
#include <limits>

namespace velkotx::host {

namespace {

constexpr long long longestDelay = 86'400'000;  // a day

std::vector<HostCommand> readSend(const std::vector<COtxValue>& items) {
    std::vector<HostCommand> commands;
    for (const COtxValue& item : items) {
        try {
            commands.push_back(readHostCommand(item));
        } catch (const FormError& error) {
            throw FormError("'send', entry " + std::to_string(commands.size() + 1) + ": " + error.what());
        }
    }
    return commands;
}

AnswerRule readRule(const COtxValue& json) {
    const JsonMembers members(json);
    members.refuseOthersThan({"on", "screen", "times", "delayMs", "send"});
    AnswerRule rule;
    rule.on = members.requiredText("on");
    rule.screen = members.text("screen");
    rule.times = members.number("times", std::numeric_limits<long long>::max()).value_or(rule.times);
    rule.delay = std::chrono::milliseconds(members.number("delayMs", longestDelay).value_or(0));
    const auto send = members.list("send");
    if (!send)
        throw FormError("'send' is missing");
    rule.send = readSend(*send);
    return rule;
}

std::vector<AnswerRule> readRules(const COtxValue& json) {
    if (json.Type() != OTX::ValueType::List)
        throw FormError("a JSON array of rules was expected");
    std::vector<AnswerRule> rules;
    for (const COtxValue& item : json.List()) {
        try {
            rules.push_back(readRule(item));
        } catch (const FormError& error) {
            throw FormError("rule " + std::to_string(rules.size() + 1) + ": " + error.what());
        }
    }
    return rules;
}

}  // namespace

std::vector<AnswerRule> readAnswers(Inputs& inputs, const std::string& file) {
    const std::string prefix = displayName(file) + ": ";
    try {
        return readRules(OTX::FromJSON(inputs.read(file)));
    } catch (const UnreadableFile& error) {
        throw UsageError(prefix + error.what());
    } catch (const FormError& error) {
        throw UsageError(prefix + error.what());
    } catch (const COtxValue& error) {
        throw UsageError(prefix + error.what());
    }
}

}  // namespace velkotx::host
