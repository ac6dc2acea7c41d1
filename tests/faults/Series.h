// A fault at each place of a piece of work, one after the other.
#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <string>

namespace faults {

// What one attempt with a fault came to.
struct Attempt {
    bool wasHit = false;         // whether the fault came: without it, the work has fewer places
    std::exception_ptr failure;  // null when the work passed all the same
    std::string result;          // what it gave then
};

struct Series {
    std::string name;
    // The work with the fault at the n-th place, from 1. Catches all that the work throws.
    std::function<Attempt(std::size_t place)> attempt;
    // The same work without a fault; what it gives must be the same each time.
    std::function<std::string()> repeat;
    // Whether the work may pass although the fault came. What it gives then must be what it gives without.
    std::function<bool(std::size_t place)> mayPass = [](std::size_t) { return false; };
};

// Every so manyth place, until the fault doesn't come any more. Each failure must be one that is stated, the repetition must
// work, and no memory may be left. Prints the outcomes; true if all was as it must be.
bool holds(const Series& series, std::size_t every);

// The failure in words; empty for one that no host could make sense of.
std::string stated(const std::exception_ptr& failure);

}  // namespace faults
