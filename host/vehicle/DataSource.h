// What the sources of a control unit's data give at a moment.
#pragma once

#include <vehicle/ControlUnitDescription.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velkotx::host {

// Whether the source's bytes can carry the value as it is.
bool canCarry(const CurveSource& source, double physical);

// How many bytes the sources give, always.
std::size_t sourceLength(const std::vector<DataSource>& sources);

// Appends the bytes at the time, the high byte first; `reads` tells how often they were asked before, and counters go by it.
// A value that doesn't fit its bytes is the nearest one that does.
void appendSources(const std::vector<DataSource>& sources, Clock::Time time, std::uint64_t reads, Bytes& target);

}  // namespace velkotx::host
