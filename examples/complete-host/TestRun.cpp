// A Sequencer on a thread of its own, and the ways to it from other threads.
#include "TestRun.h"

#include <otx/host/PersistenceHost.h>
#include <otx/value/COtxMap.h>
#include <velkotx/LoopExceptions.h>

#include <cxxabi.h>

#include <fstream>
#include <mutex>
#include <stdexcept>
#include <string_view>
#include <utility>

TestRun::TestRun(std::string file, std::string procedure, COtxValue arguments, HostObjects objects) {
    std::packaged_task<Outcome()> task([this, file = std::move(file), procedure = std::move(procedure),
                                        arguments = std::move(arguments), objects = std::move(objects)] {
        return run(file, procedure, arguments, objects);
    });
    outcome_ = task.get_future();
    thread_ = std::thread(std::move(task));
}

TestRun::~TestRun() {
    if (outcome_.valid()) cancelUntilOver();
    thread_.join();
}

Outcome TestRun::waitOrCancel(std::chrono::milliseconds limit) {
    if (outcome_.wait_for(limit) != std::future_status::ready) cancelUntilOver();
    return outcome_.get();
}

// A cancellation ahead of the first node finds nothing to cancel, so it is repeated.
void TestRun::cancelUntilOver() {
    do {
        cancel();
    } while (outcome_.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready);
}

Outcome TestRun::run(const std::string& file, const std::string& procedure, const COtxValue& arguments,
                     const HostObjects& objects) {
    // However this ends, even by a cancellation of the thread: the Sequencer is destroyed on the thread that made it.
    struct Closing {
        TestRun& run;
        ~Closing() { run.close(); }
    } const closing{*this};
    try {
        open(file, objects);
    } catch (const std::exception& failure) {
        return {Outcome::Kind::unloadable, {}, failure.what()};
    }
    try {
        // Without the lock: others call meanwhile, and only this thread puts the Sequencer away.
        return {Outcome::Kind::finished, sequencer_->Run(procedure, arguments, false), {}};
    } catch (const velkotx::OTXSequenceException& exception) {
        return {Outcome::Kind::exceptionOfTheSequence, {}, std::string(exception.what()) + ": " + exception.text()};
    } catch (const velkotx::OTXRuntimeException& failure) {
        if (failure.what() == std::string_view("cancelled")) return {Outcome::Kind::cancelled, {}, failure.what()};
        return {Outcome::Kind::failure, {}, std::string(failure.what()) + ": " + failure.text()};
    } catch (const velkotx::BreakException& end) {  // as the next one no std::exception
        return {Outcome::Kind::failure, {}, "BreakException: " + end.target()};
    } catch (const velkotx::ContinueException& end) {
        return {Outcome::Kind::failure, {}, "ContinueException: " + end.target()};
    } catch (const std::exception& failure) {  // of a host object
        return {Outcome::Kind::failure, {}, failure.what()};
    } catch (abi::__forced_unwind&) {  // the thread is cancelled
        throw;
    } catch (...) {  // of a host object too
        return {Outcome::Kind::failure, {}, "unknown exception"};
    }
}

void TestRun::open(const std::string& file, const HostObjects& objects) {
    std::ifstream document(file, std::ios::binary);
    if (!document) throw std::runtime_error(file + " can't be opened");
    auto sequencer = velkotx::CreateSequencer(document);
    sequencer->SetHost(objects.sink);  // held weakly: our caller keeps it
    sequencer->SetPersistence(objects.store);
    const std::unique_lock guard(sequencerLock_);
    sequencer_ = std::move(sequencer);
}

void TestRun::close() {
    const std::unique_lock guard(sequencerLock_);
    sequencer_.reset();
}

void TestRun::cancel() {
    const std::shared_lock guard(sequencerLock_);
    if (!sequencer_) return;
    try {
        sequencer_->Control("cancel", COtxMap());
    } catch (const std::exception&) {
        // The run is over, or not yet at its beginning.
    }
}

bool TestRun::send(const COtxValue& event) {
    const std::shared_lock guard(sequencerLock_);
    if (!sequencer_) return false;
    try {
        sequencer_->SendEvent(event);
        return true;
    } catch (const std::exception&) {  // the screen has gone meanwhile
        return false;
    }
}
