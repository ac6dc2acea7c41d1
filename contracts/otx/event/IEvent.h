// What an event tells about itself.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace OTX {

// The numbers that IEvent::Kind answers.
enum class EventKind : int {
    TimerExpired = 1,
    MonitorChange = 2,
    DiagService = 3,
    ScreenClosed = 4,
    ServiceProvider = 5,
    ServiceExecutionFinished = 6,
    ThresholdExceeded = 7
};

// Behind COtxValue::Event(). Immutable, so any thread may read it; the references live as long as the value.
class OTX_API IEvent {
public:
    // The new value of a monitored variable; the service of a DiagService event; else what was put into the source.
    virtual const COtxValue& Value() const = 0;
    // A number of EventKind.
    virtual int Kind() const = 0;
    // A String: the name under which the source was attached to the variable. Empty for other events.
    virtual const COtxValue& Name() const = 0;

protected:
    ~IEvent() = default;
};

}  // namespace OTX
