// A sequencer that is made, run and destroyed on one thread, as hosts are to do it.
#include "Session.h"

#include "BackgroundRun.h"
#include "Documents.h"
#include "Until.h"
#include "Values.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace api {

Session::Session(const std::string& document, const std::weak_ptr<velkotx::HostEventSink>& host)
    : Session(std::make_shared<WorkThread>(), document, host) {}

Session::Session(std::shared_ptr<WorkThread> thread, const std::string& document,
                 const std::weak_ptr<velkotx::HostEventSink>& host)
    : thread_(std::move(thread)) {
    thread_
        ->post([&] {
            sequencer_ = load(document);
            sequencer_->SetHost(host);
            return std::string();
        })
        .get();
}

Session::~Session() {
    endRun();
    thread_
        ->post([this] {
            sequencer_.reset();
            return std::string();
        })
        .wait();
}

void Session::endRun() {
    if (!future_.valid()) return;
    const auto ended = [this] {
        control("cancel");
        return isOver();
    };
    if (isOver() || isReached(ended)) return;
    std::fputs("a run can't be cancelled\n", stderr);
    std::abort();
}

void Session::start(const std::string& procedure, bool startStopped, const COtxValue& arguments) {
    if (future_.valid() && !isOver()) throw std::logic_error("the run before isn't over");
    future_ = thread_->post(
        [this, procedure, startStopped, arguments] { return outcomeOfRun(*sequencer_, procedure, arguments, startStopped); });
}

std::string Session::outcome() {
    if (future_.wait_for(longestWait) != std::future_status::ready) throw std::runtime_error("the run didn't end");
    return future_.get();
}

bool Session::isOver() const {
    return !future_.valid() || future_.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

std::string Session::control(const std::string& command, const std::string& parameters) {
    return outcomeOfControl(*sequencer_, command, parameters);
}

COtxValue Session::status(const std::string& parameters) { return sequencer_->Control("status", value(parameters)); }

}  // namespace api
