// A host that is a script, --answers and --control of one run, with an operator behind it.
#pragma once

#include "program/script/AnswerMatcher.h"
#include "program/script/AnswerRules.h"
#include "program/script/CommandPort.h"
#include "program/script/HeldBack.h"
#include "program/script/MessageTypes.h"

#include <velkotx/HostEventSink.h>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

class ControlThread;
class InterruptibleLines;
class Operator;
class SenderThread;

// The run's event sink: hands each message on, then sees to the answer. Delivering a message never waits for the run.
class ScriptedHost : public HostEventSink {
public:
    // The lines are null where there is no --control. The operator sees to the screens that the script leaves open; null
    // for none. The Sequencer, the lines and the stream outlive the host.
    ScriptedHost(Sequencer& sequencer, std::shared_ptr<HostEventSink> messages, std::vector<AnswerRule> answers,
                 InterruptibleLines* lines, std::ostream& err, std::shared_ptr<Operator> theOperator = nullptr);
    ~ScriptedHost() override;

    // Ahead of the run, on its thread: sends what the "start" rule has without a delay, then starts the host's threads.
    void start();
    // Every thread of the run, and of this host, waits for another one. Any thread, between start and finish.
    void rests();
    // Behind the run: ends the threads. What wasn't due is dropped.
    void finish();

    // Behind finish: whether the run was cancelled because nobody was left to resume it.
    bool hasFailed() const { return isCancelled_; }

    // Throws what the sink of the messages throws.
    void sendRequest(const COtxValue& message) override;

private:
    const AnswerRule* ruleFor(const std::string& eventType, const std::optional<std::string>& screen);
    void tellOperator(const COtxValue& message, bool isAnswered);
    void tellOperator(const HostCommand& command);
    void whenIdle();
    void cancelIfAbandoned();
    void cancelAbandoned();

    const std::shared_ptr<HostEventSink> messages_;
    AnswerMatcher answers_;
    InterruptibleLines* const lines_;
    std::optional<HeldBack> heldBack_;
    MessageTypes messageTypes_;
    CommandPort port_;
    std::atomic<bool> controlHasEnded_;
    std::atomic<bool> isCancelled_{false};
    std::unique_ptr<SenderThread> sender_;
    std::unique_ptr<ControlThread> control_;
};

}  // namespace velkotx::host
