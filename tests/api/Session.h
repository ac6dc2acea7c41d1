// A sequencer that is made, run and destroyed on one thread, as hosts are to do it.
#pragma once

#include "WorkThread.h"

#include <otx/value/COtxValue.h>
#include <velkotx/Sequencer.h>

#include <future>
#include <memory>
#include <string>

namespace api {

// All but the runs happens on the thread of the test. The destructor cancels a run that the test left behind; one that can't
// be cancelled ends the program after a minute.
class Session {
public:
    Session(const std::string& document, const std::weak_ptr<velkotx::HostEventSink>& host);
    // On a thread that others have used and will use.
    Session(std::shared_ptr<WorkThread> thread, const std::string& document, const std::weak_ptr<velkotx::HostEventSink>& host);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    velkotx::Sequencer& sequencer() { return *sequencer_; }

    // Begins a run; the one before must be over.
    void start(const std::string& procedure = "main", bool startStopped = false, const COtxValue& arguments = COtxValue());
    // The result of the run, as in BackgroundRun. Waits for the end, a minute at most.
    std::string outcome();
    bool isOver() const;

    // What a command threw, or its answer as JSON.
    std::string control(const std::string& command, const std::string& parameters = "{}");
    COtxValue status(const std::string& parameters = "{}");

private:
    void endRun();

    const std::shared_ptr<WorkThread> thread_;
    std::shared_ptr<velkotx::Sequencer> sequencer_;
    std::future<std::string> future_;
};

}  // namespace api
