// Lines of a file, a pipe or a terminal whose reader can be called off.
#pragma once

#include <optional>
#include <string>

namespace velkotx::host {

class Inputs;

// One thread reads; any thread may call it off.
class InterruptibleLines {
public:
    // "-" is standard input. Throws UsageError for a file that can't be read, and for a second "-".
    InterruptibleLines(Inputs& inputs, const std::string& name);
    ~InterruptibleLines();

    InterruptibleLines(const InterruptibleLines&) = delete;
    InterruptibleLines& operator=(const InterruptibleLines&) = delete;

    // The next line without its end; none at the end of the input. When the reader is called off, the lines that are there
    // come to their end, but nobody waits for others.
    std::optional<std::string> next();
    void callOff();

private:
    bool readMore();

    const bool isStandardInput_;
    bool isFile_ = false;  // has an end that doesn't have to be waited for
    int input_ = -1;
    int calledOff_ = -1;
    bool atEnd_ = false;
    std::string unread_;
};

}  // namespace velkotx::host
