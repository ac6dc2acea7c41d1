// Runs one document as its expectation file says.
#include "DocumentRun.h"

#include "Loading.h"
#include "Outcome.h"
#include "RecordingHost.h"
#include "ShortStack.h"
#include "Stepper.h"
#include "Surroundings.h"
#include "TraceRecorder.h"
#include "Transcript.h"
#include "VehicleFile.h"
#include "answering/Answerer.h"
#include "recording/ProviderType.h"
#include "recording/RecordingStore.h"
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

// One run, with all that its messages have caused.
std::string runStep(velkotx::Sequencer& sequencer, RecordingHost& host, const Step& step, bool stepped) {
    if (!stepped) return outcomeOf(sequencer, step, false);
    Stepper stepper(sequencer);
    host.stepWith(&stepper);
    const std::string outcome = outcomeOf(sequencer, step, true);
    host.stepWith(nullptr);
    stepper.finish();
    return outcome;
}

// The steps of the script, all on one thread, because a sequencer knows its flows by their threads.
void runSteps(velkotx::Sequencer& sequencer, RecordingHost& host, Answerer& answerer, const Script& script, bool stepped,
              Transcript& transcript) {
    for (const Step& step : script.steps) {
        switch (step.kind) {
            case Step::Kind::context: sequencer.SetContextVariables(OTX::FromJSON(step.json)); break;
            case Step::Kind::translations: sequencer.SetTranslations(OTX::FromJSON(step.json)); break;
            case Step::Kind::event: answerer.sendEvent(OTX::FromJSON(step.json)); break;
            case Step::Kind::run: {
                const std::string outcome = runStep(sequencer, host, step, stepped);
                answerer.settle();
                transcript.settle();
                host.recordKept();
                transcript.add(outcome);
                break;
            }
        }
    }
}

}  // namespace

std::vector<std::string> runDocument(const std::string& document, const Script& script, Mode mode) {
    const Surroundings surroundings(script);  // until no thread of the run is left
    Transcript transcript;
    const TraceRecorder trace(script.trace, script.sequenceLog, transcript);

    CallRecorder recorder(transcript, script.failures);
    RecordingVehicle recording(recorder);
    RecordingHost host(transcript, script.stopKeys, script.refusals);
    std::optional<ProviderType> providers;
    if (script.withProviders) providers.emplace(recorder);
    std::optional<Answerer> answerer;  // outlives the sequencer, whose threads send messages to its end
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

    auto handle = std::make_shared<HostHandle>(host);
    const std::future<void> gone = handle->gone();
    if (script.withHost) sequencer->SetHost(handle);
    if (script.hostGone) handle.reset();
    if (script.recordsCalls) recording.giveTo(*sequencer);
    if (!script.vehicleFile.empty()) velkotx::host::installVehicle(*sequencer, vehicleIn(script.vehicleFile), nullptr);
    if (script.withStore)
        sequencer->SetPersistence(std::make_shared<RecordingStore>(recorder, OTX::FromJSON(script.storeContents)));
    answerer.emplace(*sequencer, script.answers, transcript, [&handle] { handle.reset(); });
    host.answerWith(&*answerer);
    host.keep(script.keepMessages);
    if (!script.filesFolder.empty())
        sequencer->SetFileStore(std::make_shared<RecordingFileStore>(recorder, script.filesFolder));
    const bool stepped = mode == Mode::stepped || !script.stopKeys.empty();
    const auto work = [&] { runSteps(*sequencer, host, *answerer, script, stepped, transcript); };
    // Every stop lists the whole call stack, so a recursion without end would take the square of its depth in steps.
    if (stepped)
        onShortStack(work);
    else
        work();
    answerer->end();
    handle.reset();
    gone.wait();
    return transcript.lines();
}

}  // namespace documents
