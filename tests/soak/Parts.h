// The parts of the soak; each is true if all was as it must be.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace soak {

// So many runs of a document, or as many as the time allows; a new sequencer every thousand. All give the same, and the
// resident memory after the first twentieth of the runs grows by no more than 1 %.
bool runOverAndOver(const std::string& document, std::size_t runs, std::chrono::seconds longest);

// So many sequencers at once, each with lanes, a screen and timers under way, so many times.
bool runCrowds(std::size_t sequencers, std::size_t rounds);

}  // namespace soak
