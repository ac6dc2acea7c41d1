// The exit statuses of velkotx: part of its interface to scripts.
#pragma once

namespace velkotx::host {

struct ExitStatus {
    static constexpr int finished = 0;
    static constexpr int exception = 1;   // an OTX exception that no handler of the sequence took
    static constexpr int badInput = 2;    // bad usage, or a document that can't be loaded
    static constexpr int failed = 3;      // a failure of the machinery
    static constexpr int cancelled = 4;
};

}  // namespace velkotx::host
