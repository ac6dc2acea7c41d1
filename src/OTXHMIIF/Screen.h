// One open screen.
#pragma once

#include <OTXHMIIF/ChangeEvents.h>
#include <OTXHMIIF/ScreenArguments.h>
#include <OTXHMIIF/ScreenHost.h>

#include <string>

namespace OTX {

// Shared between the HMI that opened it and calls that are on their way. Any thread.
class Screen {
public:
    // Tells the host, "HMI-OpenScreen". Throws what the host throws; nothing is left then.
    Screen(const ScreenHost& host, bool modal, const ScreenArguments& arguments);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    const COtxValue& closedSource() const { return closedSource_; }

    // Tells the host and whoever waits for the closing.
    void closeScreen();
    // False when the host is gone.
    bool highlight();
    // Writes the variables of out and inout parameters, in the order of the names. Throws std::runtime_error, "Unknown
    // variable: ", for a name that has none; those before it are written.
    void outValueChanged(const COtxValue& parameters);
    // The screen's end, by whoever took it out of the HMI, once: nobody waits for the closing any more, and no change
    // reaches the host but the one on its way. Throws as ChangeEvents::end.
    void end();

private:
    using Parameters = ScreenHost::Entries;

    void watch(const ScreenArguments::Variables& variables, Parameters& shown);

    const ScreenHost host_;
    const COtxValue monitorSource_;
    const COtxValue closedSource_;
    ChangeEvents changeEvents_;
    ScreenArguments::Variables outVariables_;  // not changed once the screen is open
};

}  // namespace OTX
