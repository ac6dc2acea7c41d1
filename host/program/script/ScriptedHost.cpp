// A host that is a script.
#include "program/script/ScriptedHost.h"

#include "program/script/ControlThread.h"
#include "program/script/InterruptibleLines.h"
#include "program/script/SenderThread.h"

#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>
#include <otx/value/IString.h>

#include <utility>

namespace velkotx::host {

namespace {

constexpr const char* stopEvent = "FlowStopped";

// A member that is a text; none where it is something else.
std::optional<std::string> textOf(const COtxValue& message, const std::string& member) {
    const COtxValue value = OTX::GetOptionalParameter(message, member, COtxValue(), OTX::ValueType::Empty);
    if (value.Type() != OTX::ValueType::String)
        return {};
    return value.String();
}

}  // namespace

ScriptedHost::ScriptedHost(Sequencer& sequencer, std::shared_ptr<HostEventSink> messages,
                           std::vector<AnswerRule> answers, InterruptibleLines* lines, std::ostream& err)
    : messages_(std::move(messages)),
      answers_(std::move(answers)),
      lines_(lines),
      port_(sequencer, *messages_, err),
      controlHasEnded_(lines == nullptr) {
    if (lines_ == nullptr)
        messageTypes_.close();
}

ScriptedHost::~ScriptedHost() {
    finish();
}

void ScriptedHost::start() {
    sender_ = std::make_unique<SenderThread>(port_, [this] { cancelIfAbandoned(); });
    if (const AnswerRule* rule = answers_.fire("start", {})) {
        if (rule->delay.count() == 0)
            for (const HostCommand& command : rule->send)
                port_.send(command);
        else
            sender_->put(rule->send, rule->delay);
    }
    if (lines_ != nullptr) {
        control_ = std::make_unique<ControlThread>(*lines_, messageTypes_, port_, [this] {
            controlHasEnded_ = true;
            sender_->nudge();
        });
    }
}

void ScriptedHost::finish() {
    control_.reset();
    sender_.reset();
}

void ScriptedHost::sendRequest(const COtxValue& message) {
    messages_->sendRequest(message);
    const std::optional<std::string> eventType = textOf(message, "eventType");
    if (!eventType)
        return;
    const bool isStop = *eventType == stopEvent;
    if (isStop) {
        const COtxValue status = OTX::GetParameter(message, "status", OTX::ValueType::Map);
        port_.noteStop(OTX::GetParameter(status, "id", OTX::ValueType::Integer).Int());
    }
    messageTypes_.note(*eventType);
    answer(*eventType, textOf(message, "screenName"));
    if (isStop)
        sender_->nudge();
}

void ScriptedHost::answer(const std::string& eventType, const std::optional<std::string>& screen) {
    if (eventType == "start")  // that one is the host's own
        return;
    if (const AnswerRule* rule = answers_.fire(eventType, screen))
        sender_->put(rule->send, rule->delay);
}

// A stopped flow that nobody will resume would hold the run, and the program, for ever.
void ScriptedHost::cancelIfAbandoned() {
    if (isCancelled_ || !controlHasEnded_ || !port_.someFlowIsStopped())
        return;
    if (answers_.canResume() && !port_.allFlowsAreStopped())
        return;
    isCancelled_ = true;
    port_.refuse("a flow is stopped and nobody is left to resume it: the run is cancelled");
    port_.send(ControlCommand{"cancel", COtxMap()});
}

}  // namespace velkotx::host
