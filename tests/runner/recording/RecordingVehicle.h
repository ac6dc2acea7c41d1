// All recording host objects of a document.
#pragma once

#include "CallRecorder.h"
#include "Services.h"

#include <velkotx/Sequencer.h>

namespace documents {

// Outlives the sequencer that it is given to.
class RecordingVehicle {
public:
    explicit RecordingVehicle(CallRecorder& recorder) : recorder_(recorder) {}

    void giveTo(velkotx::Sequencer& sequencer);

private:
    CallRecorder& recorder_;
    Services services_;
};

}  // namespace documents
