// The thread that tells the host of changes to a screen's in and inout parameters.
#include <OTXHMIIF/ChangeEvents.h>
#include <Trace.h>
#include <Unwind.h>
#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxMap.h>
#include <otx/value/IString.h>

#include <exception>
#include <mutex>
#include <system_error>
#include <utility>

namespace OTX {

namespace {

void sendChanges(const ScreenHost& host, const COtxValue& monitorSource) {
    COtxValue received;
    while (monitorSource.EventSource().Wait(received)) {
        const IEvent& change = received.Event();
        const COtxValue value = host.published(change.Value());
        OTX_TRACE_AS("OTX::Screen::changeEventsThread", 4, change.Name() << ": " << value);
        const ScreenHost::Entries parameter{{change.Name().String(), value}};
        host.send("HMI-InParameterValueChanged", {{"parameters", COtxMap(parameter)}});
    }
}

void changeEventsThread(const ScreenHost& host, const COtxValue& monitorSource) {
    try {
        sendChanges(host, monitorSource);
    } catch (const std::exception& failure) {
        OTX_TRACE_AS("OTX::Screen::changeEventsThread", 0, host.screen() << ": host failed: " << failure.what());
    }
    OTX_PASS_FORCED_UNWIND
    catch (...) {
        OTX_TRACE_AS("OTX::Screen::changeEventsThread", 0, host.screen() << ": host failed");
    }
    // Changes that nobody takes any more aren't to pile up.
    monitorSource.EventSource().Close();
}

// The calling thread waits for the end of another one, but never in a circle: the host may end screens from inside messages
// of each other's threads. Those that wait stand in a chain, which needs no memory.
class Awaiting {
public:
    explicit Awaiting(std::thread::id awaited) : awaited_(awaited) {
        const std::lock_guard guard(shared().lock);
        for (auto next = awaited; next != std::thread::id(); next = awaitedBy(next))
            if (next == self_) throw std::system_error(std::make_error_code(std::errc::resource_deadlock_would_occur));
        behind_ = std::exchange(shared().first, this);
        if (behind_ != nullptr) behind_->ahead_ = this;
    }
    ~Awaiting() {
        const std::lock_guard guard(shared().lock);
        (ahead_ != nullptr ? ahead_->behind_ : shared().first) = behind_;
        if (behind_ != nullptr) behind_->ahead_ = ahead_;
    }
    Awaiting(const Awaiting&) = delete;
    Awaiting& operator=(const Awaiting&) = delete;

private:
    struct Shared {
        // Guards what follows.
        std::mutex lock;
        Awaiting* first = nullptr;
    };
    // Never destroyed: a thread that the host holds may come back late.
    static Shared& shared() {
        static auto* const all = new Shared;
        return *all;
    }

    static std::thread::id awaitedBy(std::thread::id thread) {
        for (const Awaiting* one = shared().first; one != nullptr; one = one->behind_)
            if (one->self_ == thread) return one->awaited_;
        return {};
    }

    const std::thread::id self_ = std::this_thread::get_id();
    const std::thread::id awaited_;
    // Guarded by the lock of all.
    Awaiting* ahead_ = nullptr;
    Awaiting* behind_ = nullptr;
};

}  // namespace

ChangeEvents::ChangeEvents(const ScreenHost& host, const COtxValue& monitorSource)
    : monitorSource_(monitorSource),
      thread_([host, monitorSource] { changeEventsThread(host, monitorSource); }) {}

ChangeEvents::~ChangeEvents() {
    if (!thread_.joinable()) return;
    close();
    if (thread_.get_id() == std::this_thread::get_id())
        thread_.detach();
    else
        thread_.join();
}

void ChangeEvents::close() {
    monitorSource_.EventSource().Close();
}

void ChangeEvents::end() {
    close();
    try {
        const Awaiting awaiting(thread_.get_id());
        thread_.join();
    } catch (const std::system_error&) {
        // It is inside a message to the host, behind which it needs nothing but what it holds. Whoever lets go of the screen
        // last doesn't wait for the host.
        thread_.detach();
        throw;
    }
}

}  // namespace OTX
