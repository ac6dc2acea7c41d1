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

}  // namespace

// A lane's thread in the run's group and among its flows.
class Lanes::Membership {
public:
    explicit Membership(Lanes& lanes) : lanes_(lanes), guard_(lanes.lock_) {
        COtxEventSource::ThreadGroup().Join(lanes.parent_);
        try {
            lanes.context_.BeginFlow(lanes.parentState_, lanes.parent_);
            lanes.threads_.push_back(std::this_thread::get_id());
        } catch (...) {
            COtxEventSource::ThreadGroup().Leave();
            throw;
        }
        if (lanes.threads_.size() == lanes.laneCount_) lanes.allStarted_.notify_all();
        guard_.unlock();
    }
    ~Membership() {
        lanes_.context_.EndFlow(std::this_thread::get_id());
        COtxEventSource::ThreadGroup().Leave();
    }
    Membership(const Membership&) = delete;
    Membership& operator=(const Membership&) = delete;

private:
    Lanes& lanes_;
    std::unique_lock<std::mutex> guard_;
};

Lanes::Lanes(const Parallel& node, OtxContext& context)
    : context_(context),
      name_(runtimeClass(node)),
      parent_(std::this_thread::get_id()),
      parentState_(context.FlowOf(parent_).state),
      laneCount_(node.realisation()->lane().size()) {}

bool Lanes::waitForAll() {
    std::unique_lock guard(lock_);
    allStarted_.wait(guard, [this] { return abandoned_ || threads_.size() == laneCount_; });
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

void Lanes::runLane(const Flow& lane) try {
    const Membership membership(*this);
    if (!waitForAll()) return;
    try {
        lane.exec(context_);
    } catch (velkotx::CancelException&) {
        OTX_TRACE_AS(execName, 3, name_ << "Lane cancelled, cancel the others.");
        cancelOthers();
    } catch (velkotx::ReturnException&) {
        OTX_TRACE_AS(execName, 3, name_ << "Lane returned, wait.");
        const std::lock_guard guard(lock_);
        returned_ = std::current_exception();
    } catch (COtxValue& caught) {
        OTX_TRACE_AS(execName, 3, name_ << "Lane caught OTX exception, wait." << caught);
        const std::lock_guard guard(lock_);
        if (failure_ == nullptr) failure_ = std::current_exception();
    } catch (std::exception& failure) {
        // Its words stand in the trace only: the run ends as cancelled. This is meant.
        OTX_TRACE_AS(execName, 3, name_ << "Caught unexpected exception on lane: '" << failure.what()
                                        << "', Cancelling the sequence");
        cancelSequence();
    }
    OTX_PASS_FORCED_UNWIND
    catch (...) {
        OTX_TRACE_AS(execName, 3, name_ << "Caught unknown, Cancelling the sequence");
        cancelSequence();
    }
} catch (std::exception& failure) {
    // The lane has not become a flow: the others would wait for it for ever.
    OTX_TRACE_AS(execName, 3, name_ << "Caught unexpected exception on lane: '" << failure.what()
                                    << "', Cancelling the sequence");
    abandon();
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
