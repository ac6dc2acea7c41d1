// Where the debugger's commands come from.
#include "program/debug/LineReader.h"

#include <editline/readline.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <istream>

namespace velkotx::host {

namespace {

class TerminalReader : public LineReader {
public:
    TerminalReader() {
        std::setlocale(LC_CTYPE, "");  // letters beyond ASCII are to be edited as letters
        using_history();
    }

    std::optional<std::string> read() override {
        const std::unique_ptr<char, void (*)(void*)> line(readline("(velkotx) "), std::free);
        if (line == nullptr)
            return {};
        if (*line != '\0')
            add_history(line.get());
        return std::string(line.get());
    }

    bool isTerminal() const override { return true; }
};

class StreamReader : public LineReader {
public:
    explicit StreamReader(std::istream& stream) : stream_(stream) {}

    std::optional<std::string> read() override {
        std::string line;
        if (!std::getline(stream_, line))
            return {};
        return line;
    }

    bool isTerminal() const override { return false; }

private:
    std::istream& stream_;
};

}  // namespace

std::unique_ptr<LineReader> makeLineReader(std::istream& standardInput) {
    if (isatty(STDIN_FILENO) == 1)
        return std::make_unique<TerminalReader>();
    return std::make_unique<StreamReader>(standardInput);
}

}  // namespace velkotx::host
