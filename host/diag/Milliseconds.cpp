// Times as sequences write them.
#include "diag/Milliseconds.h"

#include "diag/CodedValue.h"
#include "diag/DiagFailure.h"

#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>

#include <cmath>

namespace velkotx::host {

Clock::Duration fromMilliseconds(const COtxValue& time) {
    constexpr double day = 24.0 * 60 * 60 * 1000;
    const double milliseconds = numberIn(time, "ms");
    if (!(milliseconds >= 1 && milliseconds <= day))
        fail(OTX::Exceptions_e::DiagComException, time.ToString().String() + " is no time from 1 ms to a day");
    return Clock::Duration(std::llround(milliseconds * 1000));
}

COtxValue toMilliseconds(Clock::Duration time) {
    if (time.count() % 1000 == 0)
        return COtxInt(time.count() / 1000);
    return COtxFloat(static_cast<double>(time.count()) / 1000);
}

}  // namespace velkotx::host
