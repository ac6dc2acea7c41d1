// Times as sequences write them.
#pragma once

#include <transport/Clock.h>

#include <otx/value/COtxValue.h>

namespace velkotx::host {

// Of a number of milliseconds or a Quantity of time. Throws kind 7 for what isn't between 1 ms and a day.
Clock::Duration fromMilliseconds(const COtxValue& time);

// An Integer, or a Float when there is a fraction.
COtxValue toMilliseconds(Clock::Duration time);

}  // namespace velkotx::host
