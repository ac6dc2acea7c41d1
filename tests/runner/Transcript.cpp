// What happened, line by line.
#include "Transcript.h"

#include <limits>
#include <utility>

namespace documents {

namespace {

constexpr Transcript::Place atTheEnd = std::numeric_limits<Transcript::Place>::max();

// Where the calling thread adds its lines. One transcript is written at a time.
thread_local Transcript::Place placeOfThread = atTheEnd;

}  // namespace

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

Transcript::Below::Below(Place place) : former_(std::exchange(placeOfThread, place)) {}
Transcript::Below::~Below() { placeOfThread = former_; }

Transcript::Place Transcript::make(const std::string& line) {
    entries_.push_back({inOneLine(line), {}});
    return entries_.size() - 1;
}

Transcript::Place Transcript::add(const std::string& line) {
    const std::lock_guard guard(linesLock_);
    const Place place = make(line);
    (placeOfThread == atTheEnd ? order_ : entries_[placeOfThread].below).push_back(place);
    return place;
}

Transcript::Place Transcript::addAside(const std::string& group, const std::string& line) {
    const std::lock_guard guard(linesLock_);
    const Place place = make(line);
    aside_[group].push_back(place);
    return place;
}

void Transcript::settle() {
    const std::lock_guard guard(linesLock_);
    for (const auto& [group, places] : std::exchange(aside_, {})) order_.insert(order_.end(), places.begin(), places.end());
}

std::vector<std::string> Transcript::lines() const {
    const std::lock_guard guard(linesLock_);
    std::vector<std::string> result;
    write(order_, result);
    return result;
}

// As deep as answers cause messages that are answered in their turn.
void Transcript::write(const std::vector<Place>& places, std::vector<std::string>& out) const {
    for (const Place place : places) {
        out.push_back(entries_[place].line);
        write(entries_[place].below, out);
    }
}

}  // namespace documents
