// One run under the debugger.
#include "program/debug/DebugRun.h"

#include "operator/Operator.h"
#include "program/Breakpoints.h"
#include "program/Load.h"
#include "program/RunOperator.h"
#include "program/SetUp.h"
#include "program/debug/DebugEventSink.h"
#include "rest/RestWatch.h"

#include <otx/value/COtxMap.h>
#include <velkotx/Sequencer.h>

#include <csignal>
#include <ctime>
#include <sstream>
#include <stdexcept>

namespace velkotx::host {

namespace {

// How long to wait before a command that came too early is given again.
constexpr std::chrono::milliseconds retryInterval{20};

// A Ctrl-C from before the run isn't meant for it.
void dropPendingInterrupt() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    constexpr timespec atOnce{};
    while (sigtimedwait(&signals, nullptr, &atOnce) > 0) {
    }
}

}  // namespace

DebugRun::DebugRun(const RunOrder& order) : board_(std::make_shared<RunBoard>()) {
    dropPendingInterrupt();
    auto ready = ready_.get_future();
    thread_ = std::thread([this, order] { work(order); });
    sequencer_ = ready.get();
    if (sequencer_ != nullptr)
        interrupts_.emplace([this](const InterruptThread& thread) { takeInterrupt(thread); });
}

DebugRun::~DebugRun() {
    finish();
    interrupts_.reset();
    release_.set_value();
    thread_.join();
}

void DebugRun::finish() {
    isEnding_ = true;
    while (!board_->hasEnded() && !cancel() && !board_->waitForEnd(retryInterval)) {
    }
    while (!board_->waitForEnd(std::chrono::hours(1))) {
    }
}

COtxValue DebugRun::control(const std::string& command, const COtxValue& parameters) const {
    if (sequencer_ == nullptr)
        throw std::runtime_error("No sequence loaded");
    return sequencer_->Control(command, parameters);
}

void DebugRun::work(const RunOrder& order) {
    std::istringstream document(order.document);
    const Loaded loaded = load(document);
    if (const auto* unloadable = std::get_if<Outcome>(&loaded))
        return giveUp(*unloadable);
    Sequencer& sequencer = *std::get<std::shared_ptr<Sequencer>>(loaded);
    const auto runOperator = RunOperator::absent(sequencer, WithoutOperator::defaults, order.err);
    const auto sink = std::make_shared<DebugEventSink>(order.setUp.messages(), board_, runOperator->sink());
    COtxValue arguments;
    try {
        sequencer.SetHost(sink);
        order.setUp.apply(sequencer);
        arguments = order.setUp.arguments();
        if (!order.breakpoints.empty())
            sequencer.Control("setbp", breakpointParameters(order.breakpoints));
        runOperator->sink()->start();
    } catch (const std::exception& error) {
        return giveUp({Outcome::Kind::failed, COtxValue(), error.what(), {}});
    }
    ready_.set_value(&sequencer);
    std::optional<RestWatch> rest(std::in_place, [&] {
        if (board_->stoppedFlows().empty())
            runOperator->sink()->tell({ScreenNews::Kind::waiting, {}, false, {}});
    });
    const Outcome outcome = runProcedure(sequencer, order.procedure, arguments, order.startStopped);
    rest.reset();
    runOperator->sink()->finish();
    board_->runEnded(outcome);
    release_.get_future().wait();
}

void DebugRun::giveUp(const Outcome& outcome) {
    board_->runEnded(outcome);
    ready_.set_value(nullptr);
}

// On the thread of the interrupts.
void DebugRun::takeInterrupt(const InterruptThread& thread) {
    if (isEnding_) {
        thread.letThrough();
        while (!thread.over(-1)) {
        }
        return;
    }
    board_->interrupted();
    while (!stopAll() && !thread.over(static_cast<int>(retryInterval.count()))) {
    }
}

// When it is refused, either all flows are stopped, or the run has none yet, or none any more.
bool DebugRun::stopAll() const {
    return isTaken("stop") || board_->hasEnded() || !board_->stoppedFlows().empty();
}

bool DebugRun::cancel() const {
    return isTaken("cancel");
}

bool DebugRun::isTaken(const char* command) const {
    try {
        control(command, COtxMap());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace velkotx::host
