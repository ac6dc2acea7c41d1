// Finds the rule that answers a message.
#include "program/script/AnswerMatcher.h"

#include <algorithm>
#include <utility>

namespace velkotx::host {

AnswerMatcher::AnswerMatcher(std::vector<AnswerRule> rules) {
    rules_.reserve(rules.size());
    for (AnswerRule& rule : rules)
        rules_.push_back({std::move(rule)});
}

bool AnswerMatcher::Counted::fits(const std::string& eventType, const std::optional<std::string>& screen) const {
    return !isUsedUp() && rule.on == eventType && (!rule.screen || rule.screen == screen);
}

const AnswerRule* AnswerMatcher::fire(const std::string& eventType, const std::optional<std::string>& screen) {
    const std::lock_guard guard(rulesLock_);
    for (Counted& counted : rules_) {
        if (counted.fits(eventType, screen)) {
            if (counted.rule.times != 0)
                ++counted.fired;
            ++underWay_;
            return &counted.rule;
        }
    }
    return nullptr;
}

void AnswerMatcher::sent() {
    const std::lock_guard guard(rulesLock_);
    --underWay_;
}

bool AnswerMatcher::someAreUnderWay() const {
    const std::lock_guard guard(rulesLock_);
    return underWay_ > 0;
}

bool AnswerMatcher::canResume() const {
    const std::lock_guard guard(rulesLock_);
    // "start" comes once, ahead of every stop.
    return std::ranges::any_of(rules_, [](const Counted& counted) {
        return !counted.isUsedUp() && counted.rule.on != "start" && std::ranges::any_of(counted.rule.send, resumes);
    });
}

bool AnswerMatcher::canClose(const std::string& screen) const {
    const std::lock_guard guard(rulesLock_);
    return underWay_ > 0 || std::ranges::any_of(rules_, [&](const Counted& counted) {
        const AnswerRule& rule = counted.rule;
        // The screen that is open isn't opened once more.
        const bool isForOpening =
            rule.on == "start" || (rule.on == "HMI-OpenScreen" && rule.screen.value_or(screen) == screen);
        return !counted.isUsedUp() && !isForOpening &&
               std::ranges::any_of(rule.send, [&](const HostCommand& command) { return closes(command, screen); });
    });
}

}  // namespace velkotx::host
