// Does what the file of --control says, line by line, on a thread of its own.
#pragma once

#include <functional>
#include <string>
#include <thread>

namespace velkotx::host {

class CommandPort;
class InterruptibleLines;
class MessageTypes;

// The thread ends with the lines, or when the object goes. Owns nothing of what it is given.
class ControlThread {
public:
    // `ended` is called on the thread behind the last line. It throws nothing.
    ControlThread(InterruptibleLines& lines, MessageTypes& messages, CommandPort& port, std::function<void()> ended);
    ~ControlThread();

    ControlThread(const ControlThread&) = delete;
    ControlThread& operator=(const ControlThread&) = delete;

private:
    void work();
    // False when the run is over.
    bool obey(const std::string& line);

    InterruptibleLines& lines_;
    MessageTypes& messages_;
    CommandPort& port_;
    const std::function<void()> ended_;
    std::size_t lineNumber_ = 0;
    std::thread thread_;
};

}  // namespace velkotx::host
