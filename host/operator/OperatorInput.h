// Where the operator's lines come from.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace velkotx::host {

class OperatorInput {
public:
    enum class What {
        line,
        noAnswer,  // the key that ends the input, Ctrl-D; more lines may follow
        gone,      // no line will ever come
        woken,     // wake was called, or the time is up
    };
    struct Event {
        What what = What::woken;
        std::string line;  // without its end
    };

    virtual ~OperatorInput() = default;

    // Blocks. Takes lines only with `reads`; what is typed meanwhile waits.
    virtual Event next(bool reads, std::optional<std::chrono::milliseconds> limit) = 0;
    // Any thread: lets the waiting one go, or the next that would wait.
    virtual void wake() = 0;
};

}  // namespace velkotx::host
