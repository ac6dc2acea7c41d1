// All recording host objects of a document.
#pragma once

#include "CallRecorder.h"
#include "Services.h"

#include <velkotx/Sequencer.h>

namespace documents {

// Outlives the sequencer that it is given to.
class RecordingVehicle {
public:
    RecordingVehicle(Transcript& transcript, const HostFailures& failures) : recorder_(transcript, failures) {}

    void giveTo(velkotx::Sequencer& sequencer);

    // For further host objects, whose calls are counted together with these.
    CallRecorder& recorder() { return recorder_; }

private:
    CallRecorder recorder_;
    Services services_;
};

}  // namespace documents
