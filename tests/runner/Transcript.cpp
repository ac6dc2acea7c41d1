// What happened, line by line.
#include "Transcript.h"

namespace documents {

std::string inOneLine(const std::string& text) {
    std::string line;
    for (const char character : text) {
        if (character == '\n')
            line += "\\n";
        else
            line += character;
    }
    return line;
}

void Transcript::add(const std::string& line) {
    const std::lock_guard guard(linesLock_);
    lines_.push_back(inOneLine(line));
}

std::vector<std::string> Transcript::lines() const {
    const std::lock_guard guard(linesLock_);
    return lines_;
}

}  // namespace documents
