// What the threads of the process do at a moment.
#pragma once

#include <sys/types.h>

#include <map>
#include <optional>
#include <set>
#include <string>

namespace velkotx::host {

// By the thread's number, where it sleeps and how often it has gone to sleep so far. Two pictures are equal only if no thread
// has moved from the one to the other; then all slept at once.
using ThreadPicture = std::map<pid_t, std::string>;

// None if some thread works, or waits for anything else than other threads of the process: for a time to come, a file, another
// process. The threads of `host` may wait for the world outside. Leaves the calling thread out. None as well where the system
// doesn't tell (it is Linux that does, below /proc/self/task). Any thread.
std::optional<ThreadPicture> pictureOfRest(const std::set<pid_t>& host);

// Of a line of /proc/PID/task/TID/syscall.
bool waitsForThreads(const std::string& systemCall);
bool waitsForTheWorld(const std::string& systemCall);

}  // namespace velkotx::host
