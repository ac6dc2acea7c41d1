// An event as a value.
#include <otx/event/COtxEvent.h>

#include <otx/value/COtxString.h>

#include <sstream>

#include "../Demolition.h"
#include "../Make.h"
#include "../Refusal.h"
#include "../TextValues.h"

namespace otx {

namespace {

const char* nameOf(OTX::EventKind kind) {
    switch (kind) {
        case OTX::EventKind::TimerExpired: return "TimerExpired";
        case OTX::EventKind::MonitorChange: return "MonitorChange";
        case OTX::EventKind::DiagService: return "DiagService";
        case OTX::EventKind::ScreenClosed: return "ScreenClosed";
        case OTX::EventKind::ServiceProvider: return "ServiceProvider";
        case OTX::EventKind::ServiceExecutionFinished: return "ServiceExecutionFinished";
        case OTX::EventKind::ThresholdExceeded: return "ThresholdExceeded";
    }
    return "Event";
}

class EventBehaviour final : public COtxValueBehaviour, public OTX::IEvent {
public:
    EventBehaviour(OTX::EventKind kind, const COtxValue& name, const COtxValue& value)
        : COtxValueBehaviour(OTX::ValueType::Event), kind_(kind), name_(name), value_(value) {}
    ~EventBehaviour() override { demolish(value_); }

    COtxValue ToString() override {
        checkNesting();
        std::ostringstream content;
        if (!name_.String().empty()) content << name_;
        if (value_.Type() != OTX::ValueType::Empty) {
            if (content.tellp() > 0) content << ", ";
            content << value_;
        }
        const std::string inside = content.str();
        return makeText(inside.empty() ? nameOf(kind_) : std::string(nameOf(kind_)) + "(" + inside + ")");
    }
    const OTX::IEvent& IEvent() const override { return *this; }

    const COtxValue& Value() const override { return value_; }
    int Kind() const override { return static_cast<int>(kind_); }
    const COtxValue& Name() const override { return name_; }

private:
    const OTX::EventKind kind_;
    const COtxValue name_;
    COtxValue value_;
};

}  // namespace

}  // namespace otx

COtxEvent::COtxEvent(OTX::EventKind kind, const COtxValue& value) : COtxEvent(kind, COtxString(), value) {}
COtxEvent::COtxEvent(OTX::EventKind kind, const COtxValue& name, const COtxValue& value)
    : COtxValue(otx::makePlain<otx::EventBehaviour>(kind, name.ToString(), value)) {
    static_cast<void>(name.String());
}
