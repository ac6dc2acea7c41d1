// The messages of a run as they came, for a script that waits for one.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>

namespace velkotx::host {

// Any thread may note; one thread awaits. No message is lost between two waits.
class MessageTypes {
public:
    void note(const std::string& eventType);
    // Nobody will await any more, and who does is let go.
    void close();

    // Blocks until a message of the type has come after the one with which the last wait ended. False if none came before
    // the close.
    bool await(const std::string& eventType);
    // Whether somebody waits in there.
    bool isAwaited();

private:
    bool takeUpTo(const std::string& eventType);

    std::mutex typesLock_;
    std::condition_variable changed_;
    // Guarded by typesLock_.
    std::deque<std::string> types_;
    bool closed_ = false;
    bool isAwaited_ = false;
};

}  // namespace velkotx::host
