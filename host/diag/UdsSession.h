// In which session a control unit is, as far as the channel to it has seen.
#pragma once

#include "diag/UdsExchange.h"
#include "diag/UdsTiming.h"

#include <cstdint>

namespace velkotx::host {

// Not locked.
class UdsSession {
public:
    // Looks at an exchange that has ended.
    void observe(const UdsRequest& request, const UdsOutcome& outcome);
    void forget() { *this = UdsSession(); }

    // Every session but the default one ends by itself unless somebody sends (ISO 14229-2, S3).
    bool needsTesterPresent() const noexcept;
    // Whether several control units were sent there at once, all of which have to stay.
    bool isFunctional() const noexcept { return functional_; }
    // The times that hold in the session: what the control unit announced lengthens the channel's own, never shortens it.
    UdsTiming stretched(UdsTiming timing) const;

private:
    void enter(const UdsRequest& request, const UdsOutcome& outcome);

    std::uint8_t session_ = 1;
    bool functional_ = false;
    Clock::Duration p2_{0};
    Clock::Duration p2Star_{0};
};

}  // namespace velkotx::host
