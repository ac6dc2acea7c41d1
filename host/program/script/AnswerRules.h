// The rules of --answers: what a scripted host sends when a message comes.
#pragma once

#include "program/script/HostCommand.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace velkotx::host {

class Inputs;

struct AnswerRule {
    std::string on;                     // the message's eventType, or "start"
    std::optional<std::string> screen;  // the message's screenName, if it matters
    long long times = 1;                // how often it fires; 0 for always
    std::chrono::milliseconds delay{0};
    std::vector<HostCommand> send;
};

// Reads a file of rules, an array of objects. Throws UsageError, with the file's name and the rule's number (from 1).
std::vector<AnswerRule> readAnswers(Inputs& inputs, const std::string& file);

}  // namespace velkotx::host
