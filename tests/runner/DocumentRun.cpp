// Runs one document as its expectation file says.
#include "DocumentRun.h"

#include "Loading.h"
#include "Outcome.h"
#include "RecordingHost.h"
#include "ShortStack.h"
#include "Stepper.h"
#include "TraceRecorder.h"
#include "Transcript.h"
#include "VehicleFile.h"
#include "recording/RecordingFileStore.h"
#include "recording/RecordingVehicle.h"

#include <objects/InstallVehicle.h>
#include <otx/value/Json.h>
#include <velkotx/Sequencer.h>

#include <cxxabi.h>

#include <memory>
#include <optional>

namespace documents {

namespace {

std::string outcomeOf(velkotx::Sequencer& sequencer, const Step& step, bool startStopped) {
    const COtxValue arguments = OTX::FromJSON(step.json);
    try {
        return finishedOutcome(sequencer.Run(step.procedure, arguments, startStopped));
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return failedOutcome();
    }
}

// The steps of the script, all on one thread, because a sequencer knows its flows by their threads.
void runSteps(velkotx::Sequencer& sequencer, RecordingHost& host, const Script& script, bool stepped, Transcript& transcript) {
    for (const Step& step : script.steps) {
        if (step.kind == Step::Kind::context) {
            sequencer.SetContextVariables(OTX::FromJSON(step.json));
        } else if (step.kind == Step::Kind::translations) {
            sequencer.SetTranslations(OTX::FromJSON(step.json));
        } else if (stepped) {
            Stepper stepper(sequencer);
            host.stepWith(&stepper);
            const std::string outcome = outcomeOf(sequencer, step, true);
            host.stepWith(nullptr);
            stepper.finish();
            transcript.add(outcome);
        } else {
            transcript.add(outcomeOf(sequencer, step, false));
        }
    }
}

}  // namespace

std::vector<std::string> runDocument(const std::string& document, const Script& script, Mode mode) {
    Transcript transcript;
    const TraceRecorder recorder(script.trace, transcript);

    RecordingVehicle recording(transcript, script.failures);
    std::shared_ptr<velkotx::Sequencer> sequencer;
    try {
        sequencer = velkotx::CreateSequencer(*streamOf(document));
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        transcript.add(unloadableOutcome());
        return transcript.lines();
    }
    if (mode == Mode::compiled) sequencer = loadedFromCompiledForm(*sequencer);

    const auto host = std::make_shared<RecordingHost>(transcript, script.stopKeys);
    if (script.withHost) sequencer->SetHost(host);
    if (script.recordsCalls) recording.giveTo(*sequencer);
    if (!script.vehicleFile.empty()) velkotx::host::installVehicle(*sequencer, vehicleIn(script.vehicleFile), nullptr);
    if (!script.filesFolder.empty())
        sequencer->SetFileStore(std::make_shared<RecordingFileStore>(recording.recorder(), script.filesFolder));
    const bool stepped = mode == Mode::stepped || !script.stopKeys.empty();
    const auto work = [&] { runSteps(*sequencer, *host, script, stepped, transcript); };
    // Every stop lists the whole call stack, so a recursion without end would take the square of its depth in steps.
    if (stepped)
        onShortStack(work);
    else
        work();
    return transcript.lines();
}

}  // namespace documents
