// What happened, line by line. Lines come from all threads of a run.
#pragma once

#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace documents {

// A text in one line: a line end in it shows as "\n".
std::string inOneLine(const std::string& text);

class Transcript {
public:
    using Place = std::size_t;

    // What the calling thread adds while this lives stands below that line, whatever other threads add meanwhile.
    class Below {
    public:
        explicit Below(Place place);
        Below(const Below&) = delete;
        Below& operator=(const Below&) = delete;
        ~Below();

    private:
        const Place former_;
    };

    Place add(const std::string& line);

    // A line of a thread that runs beside the flow. It is kept apart until settle(), which adds the groups in the order
    // of their names, each in the order of its lines.
    Place addAside(const std::string& group, const std::string& line);
    void settle();

    std::vector<std::string> lines() const;

private:
    struct Entry {
        std::string line;
        std::vector<Place> below;
    };

    Place make(const std::string& line);
    void write(const std::vector<Place>& places, std::vector<std::string>& out) const;

    mutable std::mutex linesLock_;  // guards all below
    std::deque<Entry> entries_;     // by place
    std::vector<Place> order_;
    std::map<std::string, std::vector<Place>> aside_;
};

}  // namespace documents
