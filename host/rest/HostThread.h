// The threads of the host that wait for the world outside.
#pragma once

#include <sys/types.h>

#include <set>

namespace velkotx::host {

// While it lives, the calling thread counts as one that waits for people and signals, and no run depends on how long it does
// so. Made and destroyed on that thread.
class HostThread {
public:
    HostThread();
    ~HostThread();
    HostThread(const HostThread&) = delete;
    HostThread& operator=(const HostThread&) = delete;

    // The system's numbers of those that there are. Any thread.
    static std::set<pid_t> all();

private:
    const pid_t number_;
};

}  // namespace velkotx::host
