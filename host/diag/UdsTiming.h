// The times of a channel (ISO 14229-2).
#pragma once

#include <transport/Clock.h>

#include <chrono>

namespace velkotx::host {

struct UdsTiming {
    // From the request to the first answer, and from a response pending (0x78) to what follows it.
    Clock::Duration p2 = std::chrono::milliseconds(50);
    Clock::Duration p2Star = std::chrono::milliseconds(5000);
    // From the request to its final answer, however often a response pending comes.
    Clock::Duration pendingCap = std::chrono::seconds(25);
    // Of the tester present that keeps a session alive while nothing else is sent; 0 sends none.
    Clock::Duration testerPresent = std::chrono::milliseconds(2000);
};

}  // namespace velkotx::host
