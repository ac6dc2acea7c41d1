// Takes signals, Ctrl-C above all, on a thread of its own.
#pragma once

#include <csignal>
#include <functional>
#include <set>
#include <thread>

namespace velkotx::host {

// Numbers of signals.
using Signals = std::set<int>;

// Blocks the signals in the thread that makes it, and in the threads that come from there, until it goes.
class InterruptsBlocked {
public:
    explicit InterruptsBlocked(const Signals& signals = {SIGINT});
    ~InterruptsBlocked();
    InterruptsBlocked(const InterruptsBlocked&) = delete;
    InterruptsBlocked& operator=(const InterruptsBlocked&) = delete;

private:
    sigset_t before_;
};

// While it lives, each of its signals calls the handler, on a thread of its own. Leaves alone those that the process ignores,
// as a shell's background job does with SIGINT and what nohup starts does with SIGHUP.
//
// Made and destroyed on one thread, before other threads come into being: it blocks the signals in that thread and in
// those that start from there. Throws std::system_error when the system is out of descriptors or threads.
class InterruptThread {
public:
    using Handler = std::function<void(const InterruptThread&)>;  // throws nothing

    explicit InterruptThread(Handler handler, const Signals& signals = {SIGINT});
    ~InterruptThread();

    InterruptThread(const InterruptThread&) = delete;
    InterruptThread& operator=(const InterruptThread&) = delete;

    // For the handler, on its thread.

    // Whether the object is going, waiting so many milliseconds for it; -1 waits until it does.
    bool over(int milliseconds) const;
    // From now on these of its signals find the system's own answer, which ends the process, as long as the handler stays.
    void letThrough(const Signals& signals = {SIGINT}) const;

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

    void watch() const;

    const Handler handler_;
    const Signals signals_;  // that the process doesn't ignore
    const InterruptsBlocked blocked_;
    const Descriptor interrupted_;
    const Descriptor over_;  // written when the object goes
    std::thread thread_;
};

}  // namespace velkotx::host
