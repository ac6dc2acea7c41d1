// What an operator has to hear: the run's messages about screens, taken apart.
#pragma once

#include <otx/value/COtxValue.h>

#include <map>
#include <optional>
#include <string>

namespace velkotx::host {

// Plain data that shares nothing with the run.
struct ScreenNews {
    enum class Kind {
        opened,       // modal, parameters
        changed,      // parameters: the one that changed
        highlighted,
        closed,       // by the run
        // No messages of the run, told ahead of the deed.
        settled,      // somebody else who answers for the host closes it
        cancelled,    // the host cancels the run; without a screen
        // No deed: nobody but the operator can bring the run on; without a screen.
        waiting,
    };

    Kind kind = Kind::opened;
    std::string screen;
    bool modal = false;
    std::map<std::string, COtxValue> parameters;
};

// None for a message that isn't about a screen, or lacks what it needs. Any thread.
std::optional<ScreenNews> readNews(const COtxValue& message);

// The screen that an event for Sequencer::SendEvent closes.
std::optional<std::string> screenClosedBy(const COtxValue& event);

// The events that an operator has for the run.
COtxValue outValuesChanged(const std::string& screen, const std::map<const std::string, COtxValue>& values);
COtxValue screenClosed(const std::string& screen);

}  // namespace velkotx::host
