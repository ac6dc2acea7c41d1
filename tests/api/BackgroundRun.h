// A run on a thread of its own.
#pragma once

#include <otx/value/COtxValue.h>
#include <velkotx/Sequencer.h>

#include <future>
#include <memory>
#include <string>

namespace api {

// Runs a procedure without arguments. The destructor cancels a run that the test left behind.
class BackgroundRun {
public:
    BackgroundRun(std::shared_ptr<velkotx::Sequencer> sequencer, const std::string& procedure, bool startStopped);
    BackgroundRun(const BackgroundRun&) = delete;
    BackgroundRun& operator=(const BackgroundRun&) = delete;
    ~BackgroundRun();

    // The result of the run as JSON, or what it threw as "what: text". Waits for the end, a minute at most.
    std::string outcome();

    // Waits until the flow runs, after something has resumed it.
    void waitUntilRunning(int flowId);

private:
    std::shared_ptr<velkotx::Sequencer> sequencer_;
    std::future<std::string> future_;
};

// The outcome of a run on the calling thread, in the same form.
std::string outcomeOfRun(velkotx::Sequencer& sequencer, const std::string& procedure,
                         const COtxValue& arguments = COtxValue(), bool startStopped = false);

// What a command threw, or its answer as JSON.
std::string outcomeOfControl(velkotx::Sequencer& sequencer, const std::string& command,
                             const std::string& parameters = "{}");

}  // namespace api
