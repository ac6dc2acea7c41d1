// Records the trace of the sequencer, and what the sequence itself logs, while it lives.
#pragma once

#include "ExpectFile.h"
#include "Transcript.h"

#include <vector>

namespace documents {

// One at a time: the log library has one sink. Lines of threads that steer a run aren't recorded, so that a run in steps
// has the trace of a run without.
class TraceRecorder {
public:
    // The sequence's own lines are recorded up to `sequenceLevel`, none for a negative one.
    TraceRecorder(const std::vector<TraceFilter>& filters, int sequenceLevel, Transcript& transcript);
    TraceRecorder(const TraceRecorder&) = delete;
    TraceRecorder& operator=(const TraceRecorder&) = delete;
    ~TraceRecorder();

    // Marks the calling thread as one that steers.
    static void ignoreThisThread();
};

}  // namespace documents
