// All recording host objects of a document.
#include "RecordingVehicle.h"

#include "RecordingComInterface.h"
#include "RecordingDiagCom.h"
#include "RecordingFlash.h"

#include <memory>

namespace documents {

void RecordingVehicle::giveTo(velkotx::Sequencer& sequencer) {
    sequencer.SetDiagCom(std::make_shared<RecordingDiagCom>(recorder_, services_));
    sequencer.SetFlash(std::make_shared<RecordingFlash>(recorder_));
    sequencer.SetComInterface(std::make_shared<RecordingComInterfaces>(recorder_));
}

}  // namespace documents
