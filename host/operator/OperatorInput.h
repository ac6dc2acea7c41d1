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

    // Ahead of each prompt, and behind each wait.
    virtual void prepare() {}
    // What has been typed of a line that isn't whole yet, as far as it can be told.
    virtual std::string typed() const { return {}; }
    // Forgets that, and all else that was typed and not taken. Gives whether there was any.
    virtual bool discard() { return false; }
    // Any thread: the terminal is as it was, and stays so.
    virtual void restore() {}
};

}  // namespace velkotx::host
