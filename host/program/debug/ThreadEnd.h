// Tells when a thread comes to its end.
#pragma once

#include <functional>

namespace velkotx::host {

// Calls back on the calling thread when that thread ends, in whatever way. The run has no message for the end of a flow,
// but each lane has a thread of its own, on which its messages come. The call throws nothing.
void callAtThreadEnd(std::function<void()> call);

}  // namespace velkotx::host
