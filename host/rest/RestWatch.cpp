// Notices that a run can't go on by itself.
#include "rest/RestWatch.h"

#include "rest/HostThread.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace velkotx::host {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds shortestPause{50};
// The pause is so many times as long as a look, so that a run of many threads isn't slowed down.
constexpr int pausePerLook = 20;

}  // namespace

bool RestDetector::look(std::optional<ThreadPicture> picture) {
    const bool rests = picture && picture == last_;
    last_ = rests ? std::nullopt : std::move(picture);
    return rests;
}

RestWatch::RestWatch(std::function<void()> rests) : rests_(std::move(rests)) {
    thread_ = std::thread([this] { work(); });
}

RestWatch::~RestWatch() {
    {
        const std::lock_guard guard(overLock_);
        isOver_ = true;
        overChanged_.notify_all();
    }
    thread_.join();
}

void RestWatch::work() {
    RestDetector detector;
    Clock::duration pause = shortestPause;
    std::unique_lock guard(overLock_);
    while (!overChanged_.wait_for(guard, pause, [this] { return isOver_; })) {
        guard.unlock();
        const auto begin = Clock::now();
        const bool rests = detector.look(pictureOfRest(HostThread::all()));
        pause = std::max<Clock::duration>(shortestPause, pausePerLook * (Clock::now() - begin));
        if (rests)
            rests_();
        guard.lock();
    }
}

}  // namespace velkotx::host
