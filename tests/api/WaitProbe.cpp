// An event source of the test that tells when a sequence waits on it.
#include "WaitProbe.h"

#include "Until.h"

#include <otx/event/COtxMonitorChangeEventSource.h>
#include <otx/value/COtxValueBehaviour.h>

#include <stdexcept>

namespace api {

namespace {

class Behaviour : public COtxValueBehaviour {
public:
    Behaviour() : COtxValueBehaviour(OTX::ValueType::EventSource) {}
    OTX::IEventSource& IEventSource() override { return probe_; }

private:
    WaitProbe probe_;
};

}  // namespace

COtxValue WaitProbe::make() { return COtxValue(std::make_shared<Behaviour>()); }

WaitProbe& WaitProbe::behind(const COtxValue& value) { return dynamic_cast<WaitProbe&>(value.EventSource()); }

void WaitProbe::awaitWaits(int count) {
    std::unique_lock guard(probeLock_);
    if (!waitBegan_.wait_for(guard, longestWait, [&] { return waits_ >= count; })) throw std::runtime_error("nobody waits");
}

bool WaitProbe::Wait(COtxValue& event) {
    COtxValue waitedOn;
    {
        const std::lock_guard guard(probeLock_);
        if (inner_.Type() == OTX::ValueType::Empty) inner_ = COtxMonitorChangeEventSource();
        waitedOn = inner_;
        ++waits_;
    }
    waitBegan_.notify_all();
    return waitedOn.EventSource().Wait(event);
}

COtxValue WaitProbe::inner() {
    const std::lock_guard guard(probeLock_);
    return inner_;
}

void WaitProbe::Put(const COtxValue& value) { inner().EventSource().Put(value); }

void WaitProbe::Close() { inner().EventSource().Close(); }

}  // namespace api
