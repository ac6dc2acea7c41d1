// Finds the rule that answers a message.
#pragma once

#include "program/script/AnswerRules.h"

#include <cstddef>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace velkotx::host {

// Keeps count of how often each rule has fired. Any thread may ask.
class AnswerMatcher {
public:
    explicit AnswerMatcher(std::vector<AnswerRule> rules);

    // The first rule that fits and isn't used up, which counts as fired; null if there is none. `screen` is the message's
    // screenName, if it has one. The rule lives as long as the matcher. Its answer is under way until `sent` is called.
    const AnswerRule* fire(const std::string& eventType, const std::optional<std::string>& screen);
    void sent();
    bool someAreUnderWay() const;

    // Whether a rule that isn't used up could resume a stopped flow.
    bool canResume() const;
    // Whether an answer that is under way, or a rule that isn't used up, could close an open screen or cancel the run.
    bool canClose(const std::string& screen) const;

private:
    struct Counted {
        const AnswerRule rule;
        long long fired = 0;

        bool isUsedUp() const { return rule.times != 0 && fired >= rule.times; }
        bool fits(const std::string& eventType, const std::optional<std::string>& screen) const;
    };

    mutable std::mutex rulesLock_;
    std::vector<Counted> rules_;  // its counts are guarded by rulesLock_
    std::size_t underWay_ = 0;    // guarded by rulesLock_
};

}  // namespace velkotx::host
