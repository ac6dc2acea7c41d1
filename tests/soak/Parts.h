// The parts of the soak; each is true if all was as it must be.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace soak {

// So many runs of a document, all of them within the time; a new sequencer every thousand. All give the same, and the
// resident memory after the first twentieth of the runs grows by no more than 1 %.
bool runOverAndOver(const std::string& document, std::size_t runs, std::chrono::seconds longest);

// So many sequencers at once, each with lanes, a screen and timers under way, so many times. All threads end; after the second
// round no later one leaves more than 10 % more of the resident memory. With one or two rounds the memory isn't looked at.
bool runCrowds(std::size_t sequencers, std::size_t rounds);

}  // namespace soak
