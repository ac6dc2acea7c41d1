// What the sources of a control unit's data give at a moment.
#include "vehicle/DataSource.h"

#include <algorithm>
#include <cmath>

namespace velkotx::host {

namespace {

std::size_t lengthOf(const Bytes& bytes) {
    return bytes.size();
}

template <typename Source>
std::size_t lengthOf(const Source& source) {
    return source.length;
}

void appendNumber(std::uint64_t number, std::size_t length, Bytes& target) {
    for (std::size_t place = length; place-- > 0;)
        target.push_back(static_cast<std::uint8_t>(place < 8 ? number >> (place * 8) : 0));
}

double scaled(const CurveSource& source, double physical) {
    return (physical - source.scaling.offset) / source.scaling.factor;
}

double lowestOf(const CurveSource& source) {
    return source.isSigned ? -std::ldexp(1.0, static_cast<int>(source.length * 8) - 1) : 0.0;
}

// The first number that doesn't fit.
double beyondOf(const CurveSource& source) {
    const auto bits = static_cast<int>(source.length * 8);
    return std::ldexp(1.0, source.isSigned ? bits - 1 : bits);
}

// The nearest whole number that the coding can carry.
std::uint64_t coded(const CurveSource& source, double physical) {
    const double number = scaled(source, physical);
    if (std::isnan(number))
        return 0;
    const auto bits = static_cast<int>(source.length * 8);
    const double lowest = lowestOf(source);
    const double highest = beyondOf(source);
    if (number <= lowest)
        return source.isSigned ? std::uint64_t{1} << (bits - 1) : 0;
    const double rounded = std::round(number);
    if (rounded >= highest)
        return (source.isSigned ? std::uint64_t{1} << (bits - 1) : (std::uint64_t{1} << (bits - 1)) * 2) - 1;
    return rounded < 0 ? static_cast<std::uint64_t>(static_cast<std::int64_t>(rounded))
                       : static_cast<std::uint64_t>(rounded);
}

struct Append {
    Clock::Time time;
    std::uint64_t reads;
    Bytes& target;

    void operator()(const Bytes& bytes) const { target.insert(target.end(), bytes.begin(), bytes.end()); }
    void operator()(const CounterSource& source) const {
        appendNumber(source.start + source.step * reads, source.length, target);
    }
    void operator()(const CurveSource& source) const {
        appendNumber(coded(source, source.curve.at(time)), source.length, target);
    }
};

}  // namespace

bool canCarry(const CurveSource& source, double physical) {
    const double number = std::round(scaled(source, physical));
    return lowestOf(source) <= number && number < beyondOf(source);
}

std::size_t sourceLength(const std::vector<DataSource>& sources) {
    std::size_t length = 0;
    for (const DataSource& source : sources)
        length += std::visit([](const auto& each) { return lengthOf(each); }, source);
    return length;
}

void appendSources(const std::vector<DataSource>& sources, Clock::Time time, std::uint64_t reads, Bytes& target) {
    for (const DataSource& source : sources)
        std::visit(Append{time, reads, target}, source);
}

}  // namespace velkotx::host
