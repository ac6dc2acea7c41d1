// The states of a channel, as a sequence sees them.
#include "diag/ChannelState.h"

#include "diag/DiagFailure.h"

namespace velkotx::host {

using OTX::Exceptions_e;

COtxComChannelState::ComChannelState stateOf(const UdsChannel& channel) {
    switch (channel.state()) {
        case UdsChannel::State::Created: return COtxComChannelState::Created;
        case UdsChannel::State::Open: return COtxComChannelState::Communication;
        case UdsChannel::State::Stopped: return COtxComChannelState::Online;
        default: return COtxComChannelState::Offline;
    }
}

void requireCommunication(const UdsChannel& channel) {
    const std::string subject = "the channel to '" + channel.name() + "' ";
    switch (channel.state()) {
        case UdsChannel::State::Open: return;
        case UdsChannel::State::Broken:
            fail(Exceptions_e::LossOfComException, subject + "has lost its link; start the communication again");
        case UdsChannel::State::Closed: fail(Exceptions_e::InvalidStateException, subject + "is closed");
        default: fail(Exceptions_e::InvalidStateException, subject + "is not in communication; start it");
    }
}

}  // namespace velkotx::host
