// Turns Ctrl-C into the cancellation of a run.
#pragma once

#include <csignal>
#include <thread>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

// While it lives, the first Ctrl-C (SIGINT) cancels the run of the Sequencer; the second finds the system's own answer
// to the signal, which ends the process. One at a time in a process. The Sequencer has to outlive it. Throws
// std::system_error when the system gives no pipe, thread or handler.
class InterruptWatcher {
public:
    explicit InterruptWatcher(Sequencer& sequencer);
    ~InterruptWatcher();

    InterruptWatcher(const InterruptWatcher&) = delete;
    InterruptWatcher& operator=(const InterruptWatcher&) = delete;

private:
    struct Pipe {
        Pipe();
        ~Pipe();
        int readEnd = -1;
        int writeEnd = -1;
    };

    void watch();
    bool over(int milliseconds) const;
    bool cancel();

    Sequencer& sequencer_;
    Pipe interrupted_;  // written by the signal handler
    Pipe over_;         // written when the run is over
    std::thread thread_;
    struct sigaction before_ {};
};

}  // namespace velkotx::host
