// A channel on a scripted network, with a clock that the tests move.
#pragma once

#include "DiagFakes.h"

#include "diag/UdsChannel.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace velkotx::host::testing {

using End = UdsOutcome::End;

class Client final : public UdsClient {
public:
    void completed(UdsOutcome&& outcome) override {
        {
            const std::lock_guard guard(lock_);
            outcomes_.push_back(std::move(outcome));
            thread_ = std::this_thread::get_id();
        }
        changed_.notify_all();
    }
    UdsOutcome await(std::size_t count = 1) {
        std::unique_lock lock(lock_);
        changed_.wait(lock, [&] { return outcomes_.size() >= count; });
        return outcomes_[count - 1];
    }
    std::size_t count() {
        const std::lock_guard guard(lock_);
        return outcomes_.size();
    }
    std::thread::id thread() {
        const std::lock_guard guard(lock_);
        return thread_;
    }

private:
    std::mutex lock_;
    std::condition_variable changed_;
    std::vector<UdsOutcome> outcomes_;
    std::thread::id thread_;
};

class Timed final : public UdsTimed {
public:
    std::optional<Clock::Time> due(Clock::Time) override {
        {
            const std::lock_guard guard(lock_);
            ++calls_;
        }
        changed_.notify_all();
        return std::nullopt;
    }
    void await(int calls) {
        std::unique_lock lock(lock_);
        changed_.wait(lock, [&] { return calls_ >= calls; });
    }

private:
    std::mutex lock_;
    std::condition_variable changed_;
    int calls_ = 0;
};

class UdsBench : public ::testing::Test {
protected:
    void SetUp() override { channel->start(); }

    UdsOutcome execute(Pdu request, bool functional = false) {
        const auto client = std::make_shared<Client>();
        channel->submit({std::move(request), functional}, client);
        return client->await();
    }
    void answer(std::vector<FakeAnswer> answers) {
        network->handle([answers](const Pdu&, bool) { return answers; });
    }
    // Moves the time, and waits until the channel's thread has seen that.
    void pass(Clock::Duration time) {
        const auto timed = std::make_shared<Timed>();
        EXPECT_TRUE(channel->schedule(network->clock.now() + time, timed));
        network->clock.awaitWaiting(1);
        network->clock.advance(time);
        timed->await(1);
        network->clock.awaitWaiting(1);
    }

    std::shared_ptr<FakeNetwork> network = std::make_shared<FakeNetwork>();
    std::shared_ptr<UdsChannel> channel =
        std::make_shared<UdsChannel>(std::make_shared<FakeTransport>(network), "Engine", nullptr);
};

}  // namespace velkotx::host::testing
