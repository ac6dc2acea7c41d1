// Where the debugger's commands come from.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

namespace velkotx::host {

// Used by one thread.
class LineReader {
public:
    virtual ~LineReader() = default;

    // The next line; none at the end of the input.
    virtual std::optional<std::string> read() = 0;
    // Whether a person sees a prompt.
    virtual bool isTerminal() const = 0;
};

// With a prompt, line editing and history where standard input is a terminal; else the plain lines of the stream, which
// outlives the reader.
std::unique_ptr<LineReader> makeLineReader(std::istream& standardInput);

}  // namespace velkotx::host
