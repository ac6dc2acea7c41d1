// A request whose answer the calling thread waits for.
#pragma once

#include "diag/UdsChannel.h"

namespace velkotx::host {

// Throws kind 12 when the run of the calling thread is cancelled meanwhile, as its event sources are closed then.
UdsOutcome executeAndWait(UdsChannel& channel, UdsRequest&& request);

}  // namespace velkotx::host
