// One open screen.
#include <OTXHMIIF/Screen.h>
#include <Trace.h>
#include <otx/event/COtxHMIScreenClosedEventSource.h>
#include <otx/event/COtxMonitorChangeEventSource.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/IString.h>
#include <otx/value/OtxVariable.h>

#include <stdexcept>

namespace OTX {

namespace {

// A host that is slow gets every change; beyond this number the oldest go, so that one that hangs doesn't eat the memory.
constexpr std::size_t mostPendingChanges = 1U << 20U;

}  // namespace

Screen::Screen(const ScreenHost& host)
    : host_(host),
      monitorSource_(COtxMonitorChangeEventSource(mostPendingChanges)),
      closedSource_(COtxHMIScreenClosedEventSource()),
      changeEvents_(host, monitorSource_) {
    OTX_TRACE(4, host_.screen());
}

// The thread runs and the variables are watched before the host hears of the screen: a change may arrive ahead of the
// opening. This is meant.
void Screen::open(bool modal, const ScreenArguments& arguments) {
    Parameters shown;
    // A name that stands in two groups keeps its first value.
    for (const auto& [name, value] : arguments.terms) shown.emplace(name, host_.published(value));
    watch(arguments.in, shown);
    watch(arguments.inout, shown);
    outVariables_ = arguments.inout;
    outVariables_.insert(arguments.out.begin(), arguments.out.end());
    host_.send("HMI-OpenScreen", {{"modal", COtxBool(modal)}, {"parameters", COtxMap(shown)}});
}

void Screen::watch(const ScreenArguments::Variables& variables, Parameters& shown) {
    for (const auto& [name, variable] : variables) {
        shown.emplace(name, host_.published(variable->Value()));
        variable->AddEventSource(name, monitorSource_);
    }
}

void Screen::closeScreen() {
    host_.send("HMI-CloseScreen");
    closedSource_.EventSource().Put(COtxString(host_.screen()));
}

bool Screen::highlight() {
    return host_.send("HMI-HighlightScreen");
}

void Screen::outValueChanged(const COtxValue& parameters) {
    for (const auto& [key, value] : parameters.Map()) {
        const std::string name = key.String();
        const auto found = outVariables_.find(name);
        if (found == outVariables_.end() || found->second == nullptr)
            throw std::runtime_error("Unknown variable: " + name);
        found->second->Set(value);
    }
}

void Screen::leave() {
    closedSource_.EventSource().Signal();
    changeEvents_.close();
}

void Screen::end() {
    changeEvents_.end();
    OTX_TRACE_AS("OTX::Screen::~Screen", 4, host_.screen());
}

}  // namespace OTX
