// Tells when a thread comes to its end.
#include "program/debug/ThreadEnd.h"

#include <utility>
#include <vector>

namespace velkotx::host {

namespace {

struct Calls {
    std::vector<std::function<void()>> calls;

    ~Calls() {
        for (const auto& call : calls)
            call();
    }
};

}  // namespace

void callAtThreadEnd(std::function<void()> call) {
    thread_local Calls atEnd;
    atEnd.calls.push_back(std::move(call));
}

}  // namespace velkotx::host
