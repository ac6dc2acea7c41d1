// A number that changes with time.
#include "vehicle/Curve.h"

#include <algorithm>

namespace velkotx::host {

namespace {

double between(const Curve::Point& first, const Curve::Point& second, Clock::Time time) {
    const double share = static_cast<double>((time - first.time).count()) /
                         static_cast<double>((second.time - first.time).count());
    return first.value + (second.value - first.value) * share;
}

}  // namespace

double Curve::at(Clock::Time time) const {
    if (points.empty())
        return 0;
    if (repeats && points.back().time.count() > 0)
        time = Clock::Time(time.count() % points.back().time.count());
    const auto next = std::upper_bound(points.begin(), points.end(), time,
                                       [](Clock::Time moment, const Point& point) { return moment < point.time; });
    if (next == points.begin())
        return points.front().value;
    const auto last = next - 1;
    return next == points.end() || steps ? last->value : between(*last, *next, time);
}

}  // namespace velkotx::host
