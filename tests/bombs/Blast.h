// A bomb in a process of its own.
#pragma once

#include "Bomb.h"

#include <chrono>
#include <cstddef>
#include <string>

namespace bombs {

struct Blast {
    std::string outcome;  // in words; empty when the process died
    std::string next;     // what a usual document gives afterwards, on the same thread
    std::string death;    // how the process died; empty if it didn't
    std::chrono::milliseconds processorTime{0};
    std::size_t memory = 0;  // bytes resident at the most
};

// Uses the bomb on a thread with a stack of that size.
Blast blast(const Bomb& bomb, const std::string& input, std::size_t stackSize);

// What the usual document gives when all is well.
std::string usualOutcome();

}  // namespace bombs
