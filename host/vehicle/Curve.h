// A number that changes with time.
#pragma once

#include <transport/Clock.h>

#include <vector>

namespace velkotx::host {

// Straight lines between points, or steps; before the first point and behind the last the value stays. Immutable once read.
struct Curve {
    struct Point {
        Clock::Time time;
        double value;
    };

    std::vector<Point> points;  // in the order of time; none: always 0
    bool steps = false;         // keeps each point's value up to the next
    bool repeats = false;       // begins again at the last point's time

    double at(Clock::Time time) const;
};

}  // namespace velkotx::host
