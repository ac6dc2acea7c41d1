// How a lane begins, runs and ends.
#include <ClassNames.h>
#include <OTXCoreActions/ControlExceptions.h>
#include <OTXCoreActions/Lanes.h>
#include <Trace.h>
#include <Unwind.h>
#include <otx/event/COtxEventSource.h>

namespace otxns {

namespace {

constexpr const char* execName = "otxns::Parallel_impl<otxns::Parallel_base>::exec";

// An exception that waits for the parent is for the parent; all else it does next its lanes do too.
FlowState inherited(FlowState parentState) {
    return parentState == FlowState::throwing ? FlowState::running : parentState;
}

}  // namespace

// A lane that has begun ends on every path.
class Lanes::Begun {
public:
    explicit Begun(Lanes& lanes) : lanes_(lanes) {}
    ~Begun() { lanes_.end(); }
    Begun(const Begun&) = delete;
    Begun& operator=(const Begun&) = delete;

private:
    Lanes& lanes_;
};

Lanes::Lanes(const Parallel& node, OtxContext& context)
    : context_(context),
      name_(runtimeClass(node)),
      parent_(std::this_thread::get_id()),
      parentState_(inherited(context.FlowOf(parent_).state)),
      laneCount_(node.realisation()->lane().size()) {}

void Lanes::begin() {
    const std::lock_guard guard(lock_);
    COtxEventSource::ThreadGroup().Join(parent_);
    try {
        threads_.push_back(std::this_thread::get_id());
        context_.BeginFlow(parentState_, parent_);
    } catch (const std::exception&) {
        COtxEventSource::ThreadGroup().Leave();
        throw;
    }
    if (++startedCount_ == laneCount_) allStarted_.notify_all();
}

void Lanes::end() {
    const auto thread = std::this_thread::get_id();
    {
        const std::lock_guard guard(lock_);
        std::erase(threads_, thread);
    }
    context_.EndFlow(thread);
    COtxEventSource::ThreadGroup().Leave();
}

bool Lanes::waitForAll() {
    std::unique_lock guard(lock_);
    allStarted_.wait(guard, [this] { return abandoned_ || startedCount_ == laneCount_; });
    return !abandoned_;
}

void Lanes::abandon() {
    const std::lock_guard guard(lock_);
    abandoned_ = true;
    allStarted_.notify_all();
}

void Lanes::cancelOthers() {
    const std::lock_guard guard(lock_);
    for (const std::thread::id thread : threads_) context_.SetFlowState(FlowState::cancelled, thread);
}

// What fails in it stays in the lane: the flows are marked first.
void Lanes::cancelSequence() try {
    context_.CancelAll();
} catch (const std::exception& failure) {
    OTX_TRACE_AS(execName, 3, name_ << failure.what());
}
OTX_PASS_FORCED_UNWIND
catch (...) {
    OTX_TRACE_AS(execName, 3, name_ << "Caught unknown");
}

void Lanes::cancelSequence(const std::exception& failure) {
    // Its words stand in the trace only: the run ends as cancelled. This is meant.
    OTX_TRACE_AS(execName, 3,
                 name_ << "Caught unexpected exception on lane: '" << failure.what() << "', Cancelling the sequence");
    cancelSequence();
}

void Lanes::runLane(const Flow& lane) {
    try {
        begin();
    } catch (const std::exception& failure) {
        // The others would wait for it for ever.
        abandon();
        return cancelSequence(failure);
    }
    const Begun begun(*this);
    if (waitForAll()) runFlow(lane);
}

void Lanes::runFlow(const Flow& lane) try {
    lane.exec(context_);
} catch (velkotx::CancelException&) {
    OTX_TRACE_AS(execName, 3, name_ << "Lane cancelled, cancel the others.");
    cancelOthers();
} catch (velkotx::ReturnException&) {
    OTX_TRACE_AS(execName, 3, name_ << "Lane returned, wait.");
    const std::lock_guard guard(lock_);
    returned_ = std::current_exception();
} catch (COtxValue& caught) {
    OTX_TRACE_AS(execName, 3, name_ << "Lane caught OTX exception, wait." << caught.what());
    const std::lock_guard guard(lock_);
    if (failure_ == nullptr) failure_ = std::current_exception();
} catch (std::exception& failure) {
    cancelSequence(failure);
}
OTX_PASS_FORCED_UNWIND
catch (...) {
    OTX_TRACE_AS(execName, 3, name_ << "Caught unknown, Cancelling the sequence");
    cancelSequence();
}

void Lanes::raise() const {
    if (failure_ != nullptr) {
        OTX_TRACE_AS(execName, 3, "Rethrow now all lanes have completed");
        std::rethrow_exception(failure_);
    }
    if (returned_ != nullptr) std::rethrow_exception(returned_);
}

}  // namespace otxns
