// Does what the file of --control says.
#include "program/script/ControlThread.h"

#include "program/JsonMembers.h"
#include "program/script/CommandPort.h"
#include "program/script/ControlLine.h"
#include "program/script/InterruptibleLines.h"
#include "program/script/MessageTypes.h"

#include <utility>

namespace velkotx::host {

ControlThread::ControlThread(InterruptibleLines& lines, MessageTypes& messages, CommandPort& port,
                             std::function<void()> ended)
    : lines_(lines), messages_(messages), port_(port), ended_(std::move(ended)) {
    thread_ = std::thread([this] { work(); });
}

ControlThread::~ControlThread() {
    lines_.callOff();
    messages_.close();
    thread_.join();
}

void ControlThread::work() {
    for (;;) {
        const std::optional<std::string> line = lines_.next();
        if (!line || !obey(*line))
            break;
    }
    messages_.close();
    ended_();
}

bool ControlThread::obey(const std::string& line) {
    ++lineNumber_;
    if (line.find_first_not_of(" \t\r") == std::string::npos)
        return true;
    try {
        const ControlLine command = readControlLine(line);
        const auto* await = std::get_if<Await>(&command);
        if (await == nullptr) {
            port_.send(std::get<HostCommand>(command));
            return true;
        }
        if (messages_.await(await->eventType))
            return true;
        port_.refuse("line " + std::to_string(lineNumber_) + ": the run ended before " + await->eventType + " came");
        return false;
    } catch (const FormError& error) {
        port_.refuse("line " + std::to_string(lineNumber_) + ": " + error.what());
        return true;
    }
}

}  // namespace velkotx::host
