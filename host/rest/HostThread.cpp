// The threads of the host that wait for the world outside.
#include "rest/HostThread.h"

#include <unistd.h>

#include <mutex>

namespace velkotx::host {

namespace {

struct Known {
    std::mutex numbersLock;
    std::set<pid_t> numbers;  // guarded by numbersLock
};

Known& known() {
    static Known made;
    return made;
}

}  // namespace

HostThread::HostThread() : number_(gettid()) {
    const std::lock_guard guard(known().numbersLock);
    known().numbers.insert(number_);
}

HostThread::~HostThread() {
    const std::lock_guard guard(known().numbersLock);
    known().numbers.erase(number_);
}

std::set<pid_t> HostThread::all() {
    const std::lock_guard guard(known().numbersLock);
    return known().numbers;
}

}  // namespace velkotx::host
