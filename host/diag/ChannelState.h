// The states of a channel, as a sequence sees them.
#pragma once

#include "diag/UdsChannel.h"

#include <otx/value/COtxComChannelState.h>

namespace velkotx::host {

// CREATED before communication was started, COMMUNICATION while it is, ONLINE after it was stopped, OFFLINE when the link
// is down or the channel closed.
COtxComChannelState::ComChannelState stateOf(const UdsChannel& channel);

// Throws kind 12 unless the channel is in communication, kind 15 when its link is down.
void requireCommunication(const UdsChannel& channel);

}  // namespace velkotx::host
