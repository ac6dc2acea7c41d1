// The lines that are typed at a terminal.
#pragma once

#include "operator/LineEditor.h"
#include "operator/OperatorInput.h"

#include <termios.h>

#include <csignal>

#include <iosfwd>
#include <mutex>

namespace velkotx::host {

// Edits the line itself, from the first prompt to its end, so that a line that is typed only in part can be shown again.
// Ctrl-C, Ctrl-Z and the like are the terminal's as ever. Without a stream to echo to it leaves the terminal as it is, and
// without a terminal it is nothing but the place to wait.
class TerminalInput : public OperatorInput {
public:
    // The descriptor stays the caller's; -1 for none. What is typed is echoed to the stream, which outlives the object, on the
    // thread that calls next; null for none. Throws std::system_error when the system is out of descriptors.
    explicit TerminalInput(int descriptor, std::ostream* echo = nullptr);
    ~TerminalInput() override;

    TerminalInput(const TerminalInput&) = delete;
    TerminalInput& operator=(const TerminalInput&) = delete;

    Event next(bool reads, std::optional<std::chrono::milliseconds> limit) override;
    void wake() override;
    void prepare() override;
    std::string typed() const override { return editor_.text(); }
    bool discard() override;
    void restore() override;

private:
    bool isOurs() const;
    void noticeContinuation();
    bool takeLine(Event& event);
    bool takeEdited(Event& event);
    std::optional<Event> readMore();

    const int descriptor_;
    std::ostream* const echo_;
    const int woken_;
    std::string unread_;
    LineEditor editor_;
    bool isPrepared_ = false;
    struct sigaction formerAnswer_ {};  // to SIGCONT, while it is ours

    std::mutex modeLock_;
    // Guarded by modeLock_.
    std::optional<termios> former_;  // while the mode is ours
    bool staysAsItWas_ = false;
};

}  // namespace velkotx::host
