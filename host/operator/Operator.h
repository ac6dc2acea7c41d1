// The operator of a run: an event sink with a thread that sees to screens and dialogs.
#pragma once

#include "operator/Inbox.h"

#include <velkotx/HostEventSink.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace velkotx::host {

class Attendant;
class OperatorInput;

// Delivering a message only puts it into the inbox: no thread of the run waits for the operator, and every event for the
// run comes from the operator's own thread.
class Operator : public HostEventSink {
public:
    // The stand-in takes over what is open when the input is gone for good.
    Operator(std::unique_ptr<Attendant> attendant, std::unique_ptr<OperatorInput> input,
             std::unique_ptr<Attendant> standIn);
    ~Operator() override;

    // Ahead of the run and behind it, on the run's thread.
    void start();
    void finish();
    // Behind finish: whether the run was cancelled because nobody was there to answer.
    bool hasFailed() const;

    // Pays heed to what is about screens only.
    void sendRequest(const COtxValue& message) override;

    // Any thread.
    void tell(ScreenNews news);

private:
    using Clock = std::chrono::steady_clock;

    void work();
    void takeNews();
    void settle();
    void obey(const std::string& line);
    void handOver();
    // How long to wait for what is stale to be shown; none if nothing is.
    std::optional<std::chrono::milliseconds> untilRefresh() const;

    std::unique_ptr<Attendant> attendant_;
    const std::unique_ptr<OperatorInput> input_;
    std::unique_ptr<Attendant> standIn_;
    Clock::time_point refreshed_{};
    std::size_t asked_ = 0;  // what the prompt asks that was shown last, until it is answered
    Inbox inbox_;
    std::atomic<bool> isOver_{false};
    std::thread thread_;
};

}  // namespace velkotx::host
