// The lines that are typed at a terminal.
#pragma once

#include "operator/OperatorInput.h"

namespace velkotx::host {

// Leaves the terminal as it is: line editing is the terminal's own, and Ctrl-C a signal as ever. Without a terminal it is
// nothing but the place to wait.
class TerminalInput : public OperatorInput {
public:
    // The descriptor stays the caller's; -1 for none. Throws std::system_error when the system is out of descriptors.
    explicit TerminalInput(int descriptor);
    ~TerminalInput() override;

    TerminalInput(const TerminalInput&) = delete;
    TerminalInput& operator=(const TerminalInput&) = delete;

    Event next(bool reads, std::optional<std::chrono::milliseconds> limit) override;
    void wake() override;

private:
    bool takeLine(std::string& line);
    std::optional<Event> readMore();

    const int descriptor_;
    const int woken_;
    std::string unread_;
};

}  // namespace velkotx::host
