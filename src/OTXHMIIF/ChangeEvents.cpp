// The thread that tells the host of changes to a screen's in and inout parameters.
#include <OTXHMIIF/ChangeEvents.h>
#include <Trace.h>
#include <Unwind.h>
#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxMap.h>
#include <otx/value/IString.h>

#include <exception>

namespace OTX {

namespace {

void sendChanges(const ScreenHost& host, const COtxValue& monitorSource) {
    COtxValue received;
    while (monitorSource.EventSource().Wait(received)) {
        const IEvent& change = received.Event();
        OTX_TRACE_AS("OTX::Screen::changeEventsThread", 4, change.Name() << ": " << change.Value());
        const ScreenHost::Entries parameter{{change.Name().String(), host.published(change.Value())}};
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
}

}  // namespace

ChangeEvents::ChangeEvents(const ScreenHost& host, const COtxValue& monitorSource)
    : monitorSource_(monitorSource),
      thread_([host, monitorSource] { changeEventsThread(host, monitorSource); }) {}

ChangeEvents::~ChangeEvents() {
    if (!thread_.joinable()) return;
    monitorSource_.EventSource().Close();
    if (thread_.get_id() == std::this_thread::get_id())
        thread_.detach();
    else
        thread_.join();
}

void ChangeEvents::end() {
    monitorSource_.EventSource().Close();
    thread_.join();
}

}  // namespace OTX
