// Processes that a test starts.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace Child {

// The exit status once the process has ended, -1 if a signal ended it.
inline int exitOf(pid_t child) {
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// What a copy of this process, with the calling thread alone, answers. Nothing is cleaned up in it.
template <class Work>
int answer(Work work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work());
    return exitOf(child);
}

}  // namespace Child
