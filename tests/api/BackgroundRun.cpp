// A run on a thread of its own.
#include "BackgroundRun.h"

#include "Values.h"

#include <otx/value/COtxException.h>

#include <chrono>
#include <exception>
#include <stdexcept>
#include <thread>

namespace api {

namespace {

using namespace std::chrono_literals;

}  // namespace

std::string outcomeOfRun(velkotx::Sequencer& sequencer, const std::string& procedure, const COtxValue& arguments,
                         bool startStopped) {
    try {
        return json(sequencer.Run(procedure, arguments, startStopped));
    } catch (const velkotx::BoundaryException& failure) {
        const bool runtime = dynamic_cast<const velkotx::OTXRuntimeException*>(&failure) != nullptr;
        return std::string(runtime ? "failure " : "exception ") + failure.what() + ": " + failure.text();
    } catch (const std::exception& failure) {
        return std::string("other ") + failure.what();
    }
}

std::string outcomeOfControl(velkotx::Sequencer& sequencer, const std::string& command, const std::string& parameters) {
    try {
        return json(sequencer.Control(command, value(parameters)));
    } catch (const velkotx::BoundaryException& failure) {
        return std::string("boundary ") + failure.what() + ": " + failure.text();
    } catch (const COtxValue& exception) {
        return "value " + exception.Exception().Name();
    } catch (const std::runtime_error& failure) {
        return std::string("failure ") + failure.what();
    }
}

BackgroundRun::BackgroundRun(std::shared_ptr<velkotx::Sequencer> sequencer, const std::string& procedure, bool startStopped)
    : sequencer_(std::move(sequencer)), future_(std::async(std::launch::async, [this, procedure, startStopped] {
          return outcomeOfRun(*sequencer_, procedure, COtxValue(), startStopped);
      })) {}

BackgroundRun::~BackgroundRun() {
    while (future_.valid() && future_.wait_for(0s) != std::future_status::ready) {
        outcomeOfControl(*sequencer_, "cancel");
        std::this_thread::yield();
    }
}

std::string BackgroundRun::outcome() {
    if (future_.wait_for(1min) != std::future_status::ready) throw std::runtime_error("the run didn't end");
    return future_.get();
}

void BackgroundRun::waitUntilRunning(int flowId) {
    const auto deadline = std::chrono::steady_clock::now() + 1min;
    const std::string running =
        R"({"flows":[{"id":)" + std::to_string(flowId) + R"(,"state":"RUNNING"}],"globalvars":)";
    while (!outcomeOfControl(*sequencer_, "status").starts_with(running)) {
        if (std::chrono::steady_clock::now() > deadline) throw std::runtime_error("the flow doesn't run");
        std::this_thread::yield();
    }
}

}  // namespace api
