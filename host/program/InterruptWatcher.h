// Turns Ctrl-C into the cancellation of a run.
#pragma once

#include <csignal>
#include <thread>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

// While it lives, the first Ctrl-C (SIGINT) cancels the run of the Sequencer, from a thread of its own; the second
// finds the system's own answer to the signal, which ends the process. Does nothing in a process that ignores SIGINT,
// such as a shell's background job.
//
// Made and destroyed on the thread of the run, before other threads come into being: it blocks the signal in that
// thread and in those that the run starts. The Sequencer has to outlive it. Throws std::system_error when the system is
// out of descriptors or threads.
class InterruptWatcher {
public:
    explicit InterruptWatcher(Sequencer& sequencer);
    ~InterruptWatcher();

    InterruptWatcher(const InterruptWatcher&) = delete;
    InterruptWatcher& operator=(const InterruptWatcher&) = delete;

private:
    class Descriptor {
    public:
        Descriptor(int number, const char* what);
        ~Descriptor();
        Descriptor(const Descriptor&) = delete;
        Descriptor& operator=(const Descriptor&) = delete;
        operator int() const { return number_; }

    private:
        const int number_;
    };

    // Blocks SIGINT in the thread that makes it, until it goes.
    class Blocked {
    public:
        Blocked();
        ~Blocked();
        Blocked(const Blocked&) = delete;
        Blocked& operator=(const Blocked&) = delete;

    private:
        sigset_t before_;
    };

    void watch();
    bool over(int milliseconds) const;
    bool cancel();

    Sequencer& sequencer_;
    const Blocked blocked_;
    const Descriptor interrupted_;
    const Descriptor over_;  // written when the run is over
    std::thread thread_;
};

}  // namespace velkotx::host
