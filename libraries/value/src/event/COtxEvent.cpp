// An event as a value.
#include <otx/event/COtxEvent.h>

#include <otx/value/COtxString.h>

#include <sstream>

#include "../Demolition.h"
#include "../Make.h"
#include "../TextValues.h"
#include "../TypeNames.h"

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

// A String; that of no name for the empty value.
COtxValue eventName(const COtxValue& name) {
    if (name.Type() == OTX::ValueType::Empty) return COtxString();
    static_cast<void>(name.String());
    return name;
}

class EventBehaviour final : public COtxValueBehaviour, public OTX::IEvent {
public:
    EventBehaviour(OTX::EventKind kind, const COtxValue& name, const COtxValue& value)
        : COtxValueBehaviour(OTX::ValueType::Event), kind_(kind), name_(name), value_(value) {}
    ~EventBehaviour() override { demolish(value_); }

    COtxValue ToString() override {
        const std::string& name = name_.String();
        const std::string value = valueText();
        std::string text = nameOf(kind_);
        if (name.empty() && value.empty()) return makeText(std::move(text));
        text += "(";
        text += name;
        if (!name.empty() && !value.empty()) text += ", ";
        text += value;
        return makeText(text += ")");
    }
    const OTX::IEvent& IEvent() const override { return *this; }

    const COtxValue& Value() const override { return value_; }
    int Kind() const override { return static_cast<int>(kind_); }
    const COtxValue& Name() const override { return name_; }

private:
    // Of what holds values only the type: an event may hold the one before it, and that the one before, without end.
    std::string valueText() const {
        const OTX::ValueType type = value_.Type();
        if (type == OTX::ValueType::List || type == OTX::ValueType::Map || type == OTX::ValueType::Event)
            return typeMark(type);
        std::ostringstream text;
        text << value_;
        return text.str();
    }

    const OTX::EventKind kind_;
    const COtxValue name_;
    COtxValue value_;
};

}  // namespace

}  // namespace otx

COtxEvent::COtxEvent(OTX::EventKind kind, const COtxValue& value) : COtxEvent(kind, COtxString(), value) {}
COtxEvent::COtxEvent(OTX::EventKind kind, const COtxValue& name, const COtxValue& value)
    : COtxValue(otx::makePlain<otx::EventBehaviour>(kind, otx::eventName(name), value)) {}
