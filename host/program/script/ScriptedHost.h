// A host that is a script: --answers and --control of one run.
#pragma once

#include "program/script/AnswerMatcher.h"
#include "program/script/AnswerRules.h"
#include "program/script/CommandPort.h"
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
class SenderThread;

// The run's event sink: hands each message on, then sees to the answer. Delivering a message never waits for the run.
class ScriptedHost : public HostEventSink {
public:
    // The lines are null where there is no --control. The Sequencer, the lines and the stream outlive the host.
    ScriptedHost(Sequencer& sequencer, std::shared_ptr<HostEventSink> messages, std::vector<AnswerRule> answers,
                 InterruptibleLines* lines, std::ostream& err);
    ~ScriptedHost() override;

    // Ahead of the run, on its thread: sends what the "start" rule has without a delay, then starts the host's threads.
    void start();
    // Behind the run: ends the threads. What wasn't due is dropped.
    void finish();

    // Throws what the sink of the messages throws.
    void sendRequest(const COtxValue& message) override;

private:
    void answer(const std::string& eventType, const std::optional<std::string>& screen);
    void cancelIfAbandoned();

    const std::shared_ptr<HostEventSink> messages_;
    AnswerMatcher answers_;
    InterruptibleLines* const lines_;
    MessageTypes messageTypes_;
    CommandPort port_;
    std::atomic<bool> controlHasEnded_;
    bool isCancelled_ = false;  // the sender's thread only
    std::unique_ptr<SenderThread> sender_;
    std::unique_ptr<ControlThread> control_;
};

}  // namespace velkotx::host
