// A host that is a script.
#include "program/script/ScriptedHost.h"

#include "operator/Operator.h"
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
                           std::vector<AnswerRule> answers, InterruptibleLines* lines, std::ostream& err,
                           std::shared_ptr<Operator> theOperator)
    : messages_(std::move(messages)),
      answers_(std::move(answers)),
      lines_(lines),
      port_(sequencer, *messages_, err, [this](const HostCommand& command) { tellOperator(command); }),
      controlHasEnded_(lines == nullptr) {
    if (theOperator != nullptr)
        heldBack_.emplace(std::move(theOperator));
    if (lines_ == nullptr)
        messageTypes_.close();
}

ScriptedHost::~ScriptedHost() {
    finish();
}

void ScriptedHost::start() {
    sender_ = std::make_unique<SenderThread>(port_, [this] { answers_.sent(); }, [this] { whenIdle(); });
    if (const AnswerRule* rule = answers_.fire("start", {})) {
        if (rule->delay.count() == 0) {
            for (const HostCommand& command : rule->send)
                port_.send(command);
            answers_.sent();
        } else {
            sender_->put(rule->send, rule->delay);
        }
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
    // Ahead of all that counts what is open and stopped: its answer is under way by then.
    const AnswerRule* const rule = ruleFor(*eventType, textOf(message, "screenName"));
    const bool isStop = *eventType == stopEvent;
    if (isStop) {
        const COtxValue status = OTX::GetParameter(message, "status", OTX::ValueType::Map);
        port_.noteStop(OTX::GetParameter(status, "id", OTX::ValueType::Integer).Int());
    }
    tellOperator(message, rule != nullptr);  // ahead of those who may answer
    messageTypes_.note(*eventType);
    if (rule != nullptr)
        sender_->put(rule->send, rule->delay);
    if (isStop)
        sender_->nudge();
}

const AnswerRule* ScriptedHost::ruleFor(const std::string& eventType, const std::optional<std::string>& screen) {
    if (eventType == "start")  // that one is the host's own
        return nullptr;
    return answers_.fire(eventType, screen);
}

void ScriptedHost::tellOperator(const COtxValue& message, bool isAnswered) {
    std::optional<ScreenNews> news;
    if (heldBack_)
        news = readNews(message);
    if (!news)
        return;
    if (news->kind != ScreenNews::Kind::opened)
        heldBack_->pass(std::move(*news));
    else if (heldBack_->opened(std::move(*news), isAnswered || !controlHasEnded_ || answers_.someAreUnderWay()))
        sender_->nudge();
}

void ScriptedHost::tellOperator(const HostCommand& command) {
    if (!heldBack_)
        return;
    if (cancels(command))
        heldBack_->pass({ScreenNews::Kind::cancelled, {}, false, {}});
    else if (const auto* event = std::get_if<Event>(&command))
        if (const auto closed = screenClosedBy(event->value))
            heldBack_->pass({ScreenNews::Kind::settled, *closed, false, {}});
}

// No message will come that a rule or an await is for, and a line only from a script that doesn't await one.
void ScriptedHost::rests() {
    if (!(controlHasEnded_ || messageTypes_.isAwaited()) || answers_.someAreUnderWay())
        return;
    if (port_.someFlowIsStopped())
        return cancelAbandoned();
    if (heldBack_ && !heldBack_->handOver([](const std::string&) { return true; }))
        heldBack_->pass({ScreenNews::Kind::waiting, {}, false, {}});
}

void ScriptedHost::whenIdle() {
    if (heldBack_ && controlHasEnded_)
        heldBack_->handOver([this](const std::string& screen) { return !answers_.canClose(screen); });
    cancelIfAbandoned();
}

// A stopped flow that nobody will resume would hold the run, and the program, for ever.
void ScriptedHost::cancelIfAbandoned() {
    if (isCancelled_ || !controlHasEnded_ || !port_.someFlowIsStopped())
        return;
    if (answers_.canResume() && !port_.allFlowsAreStopped())
        return;
    if (answers_.someAreUnderWay())  // asked last: what stops a flow comes behind its answer
        return;
    cancelAbandoned();
}

void ScriptedHost::cancelAbandoned() {
    if (isCancelled_.exchange(true))
        return;
    port_.refuse("a flow is stopped and nobody is left to resume it: the run is cancelled");
    port_.send(ControlCommand{"cancel", COtxMap()});
}

}  // namespace velkotx::host
