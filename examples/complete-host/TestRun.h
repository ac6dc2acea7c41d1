// A Sequencer on a thread of its own, and the ways to it from other threads.
#pragma once

#include <otx/value/COtxValue.h>
#include <velkotx/Sequencer.h>

#include <chrono>
#include <future>
#include <memory>
#include <shared_mutex>
#include <string>
#include <thread>

// What came of a run.
struct Outcome {
    enum class Kind { finished, exceptionOfTheSequence, failure, cancelled, unloadable };
    Kind kind = Kind::finished;
    COtxValue results;  // a map of the out parameters, where it finished
    std::string text;   // what went wrong, else
};

struct HostObjects {
    std::shared_ptr<velkotx::HostEventSink> sink;
    std::shared_ptr<PersistenceHost> store;
};

// Loads a document and runs a procedure, from the construction on. The Sequencer is made, run and destroyed on one thread;
// any other may steer it meanwhile. The destructor cancels the run and waits for its end.
class TestRun {
public:
    TestRun(std::string file, std::string procedure, COtxValue arguments, HostObjects objects);
    TestRun(const TestRun&) = delete;
    TestRun& operator=(const TestRun&) = delete;
    ~TestRun();

    // Waits for the end, and cancels the run when the time is up. Once, on the thread that made this.
    Outcome waitOrCancel(std::chrono::milliseconds limit);
    // Any thread. False when the run is over, or refuses the event.
    bool send(const COtxValue& event);

private:
    Outcome run(const std::string& file, const std::string& procedure, const COtxValue& arguments,
                const HostObjects& objects);
    void open(const std::string& file, const HostObjects& objects);
    void close();
    void cancel();
    void cancelUntilOver();

    // Held shared during a call, and alone to make and to destroy the Sequencer: there is no call in progress then.
    std::shared_mutex sequencerLock_;
    std::shared_ptr<velkotx::Sequencer> sequencer_;
    std::future<Outcome> outcome_;
    std::thread thread_;
};
