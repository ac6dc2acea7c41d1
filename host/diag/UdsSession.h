// In which sessions control units are, as far as the channel to them has seen.
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
    bool isFunctional() const noexcept { return ofAll_.isOpen(); }
    // Whether the request sends them there, so that those which have answered already have to stay while others take long.
    static bool opensForAll(const UdsRequest& request) noexcept;
    // The times that hold in the session: what control units announced lengthens the channel's own, never shortens it.
    UdsTiming stretched(UdsTiming timing) const;

private:
    struct Entered {
        bool isOpen() const noexcept;

        std::uint8_t session = 1;
        // The longest that anybody announced.
        Clock::Duration p2{0};
        Clock::Duration p2Star{0};
    };

    void enter(const UdsRequest& request, const UdsOutcome& outcome);
    void leave(const UdsRequest& request);

    // By a request to the channel's control unit, and by one to all that listen: neither ends the other.
    Entered own_;
    Entered ofAll_;
};

}  // namespace velkotx::host
