// Records the trace of the sequencer while it lives.
#pragma once

#include "ExpectFile.h"
#include "Transcript.h"

#include <vector>

namespace documents {

// One at a time: the log library has one sink. Lines of threads that steer a run aren't recorded, so that a run in steps
// has the trace of a run without.
class TraceRecorder {
public:
    TraceRecorder(const std::vector<TraceFilter>& filters, Transcript& transcript);
    TraceRecorder(const TraceRecorder&) = delete;
    TraceRecorder& operator=(const TraceRecorder&) = delete;
    ~TraceRecorder();

    // Marks the calling thread as one that steers.
    static void ignoreThisThread();
};

}  // namespace documents
