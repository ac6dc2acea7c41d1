// What the tests of screens share: a run with screens through which the test writes variables and lets the run go on.
#pragma once

#include "FlowTest.h"
#include "ScreenDocuments.h"

#include <otx/value/COtxValue.h>

#include <atomic>
#include <cstddef>
#include <string>

namespace api {

// Entries of a message of the host's.
bool isMessage(const COtxValue& message, const std::string& eventType, const std::string& screen);
std::string entry(const COtxValue& message, const std::string& key);
// A parameter in a message, as JSON; empty when there is none.
std::string parameter(const COtxValue& message, const std::string& name);

inline const std::string opened = "HMI-OpenScreen";
inline const std::string changed = "HMI-InParameterValueChanged";
inline const std::string closing = "HMI-CloseScreen";
inline const std::string highlighted = "HMI-HighlightScreen";

// What SendEvent threw, "deadlock" for std::system_error of that kind; empty if nothing.
std::string sent(velkotx::Sequencer& sequencer, const std::string& event);
std::string closedByOperator(velkotx::Sequencer& sequencer, const std::string& screen);
std::string outValue(velkotx::Sequencer& sequencer, const std::string& screen, const std::string& name,
                     const std::string& value);

class ScreenTest : public FlowTest {
protected:
    // A run that opens the screen "keys", through which the test writes: in-out "x" of x, out "y" of y, out "go" of g. Then
    // `before`, then a wait for the first write of "go", then `after`. There are handles "keys", "panel", "a", "b", "c". The
    // host is a new one.
    void beginScreens(const std::string& before, const std::string& after = "", const std::string& globals = "");
    // Begins the run and waits until the screen is open.
    void startUntilOpen(const std::string& screen);

    void write(const std::string& name, int value);
    // Lets the run go on.
    void go() { write("go", 1); }
    bool isOpen(const std::string& screen);

    // The next message of this kind for that screen; others are passed over.
    COtxValue heard(const std::string& eventType, const std::string& screen);
    velkotx::Sequencer& sequencer() { return session->sequencer(); }

    // Without a reaction of the host's: the sequencer runs the document once more to its end.
    void expectThatTheNextRunWorks();
};

// Counts the messages of one kind for one screen.
class MessageCount {
public:
    MessageCount(std::string eventType, std::string screen) : eventType_(std::move(eventType)), screen_(std::move(screen)) {}
    // Whether it was one.
    bool note(const COtxValue& message) {
        if (!isMessage(message, eventType_, screen_)) return false;
        ++count_;
        return true;
    }
    std::size_t count() const { return count_; }

private:
    const std::string eventType_;
    const std::string screen_;
    std::atomic<std::size_t> count_{0};
};

}  // namespace api
