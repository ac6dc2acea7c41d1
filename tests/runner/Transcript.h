// What happened, line by line. Lines come from all threads of a run.
#pragma once

#include <mutex>
#include <string>
#include <vector>

namespace documents {

// A text in one line: a line end in it shows as "\n".
std::string inOneLine(const std::string& text);

class Transcript {
public:
    void add(const std::string& line);

    std::vector<std::string> lines() const;

private:
    mutable std::mutex linesLock_;
    std::vector<std::string> lines_;
};

}  // namespace documents
