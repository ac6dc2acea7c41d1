// How long providers, services and their threads live.
#include <otx/value/OtxVariable.h>

#include <atomic>
#include <cstdlib>
#include <future>
#include <thread>

#include "Fixture.h"

namespace {

using namespace ExternalServiceProvider;

void lastUntilTerminated(const std::stop_token& terminated) {
    while (!terminated.stop_requested()) std::this_thread::yield();
}

// Tells when it is destroyed, and on which thread.
class Watched final : public Provider {
public:
    Watched(ServiceWork work, std::promise<std::thread::id>& end) : work_(std::move(work)), end_(end) {}
    ~Watched() override { end_.set_value(std::this_thread::get_id()); }
    ServiceWork Execute(const std::string&, const ProviderArguments&, const ProviderVariables&) override {
        return [this](const std::stop_token& terminated) { work_(terminated); };
    }

private:
    const ServiceWork work_;
    std::promise<std::thread::id>& end_;
};

TEST(ServiceLife, GoesOnWithoutItsHandle) {
    std::promise<void> opened;
    std::promise<void> done;
    const COtxValue provider = providerOf([&](const std::stop_token&) {
        opened.get_future().wait();
        done.set_value();
    });
    start(provider);
    opened.set_value();
    done.get_future().wait();
}

TEST(ServiceLife, EndsWithTheDisposalWhichWaits) {
    std::atomic<int> ended{0};
    const COtxValue provider = providerOf([&](const std::stop_token& terminated) {
        lastUntilTerminated(terminated);
        ++ended;
    });
    const COtxValue service = start(provider);
    start(provider);
    provider.ServiceProvider().Dispose();
    EXPECT_EQ(ended, 2);
    EXPECT_FALSE(isRunning(service)) << "a handle stays good";
    EXPECT_EQ(endOf(service).Type(), OTX::ValueType::Empty);
    EXPECT_FALSE(service.ServiceProviderService().Terminate().Bool());
}

TEST(ServiceLife, EndsWithTheLastValueOfTheProvider) {
    std::promise<std::thread::id> end;
    COtxValue service;
    {
        const COtxValue provider = MakeProvider(std::make_shared<Watched>(lastUntilTerminated, end));
        service = start(provider);
        EXPECT_TRUE(isRunning(service));
    }
    EXPECT_FALSE(isRunning(service));
    EXPECT_EQ(end.get_future().get(), std::this_thread::get_id());
}

// The service writes the variable that holds the provider: the last value goes on the service's own thread, which can't wait
// for itself, and the service goes on using the provider.
TEST(ServiceLife, BearsTheLastValueGoingOnItsOwnThread) {
    std::promise<std::thread::id> end;
    std::promise<void> passed;
    std::promise<bool> wasTerminated;
    const auto cell = std::make_shared<OtxVariable>(COtxValue());
    cell->Set(MakeProvider(std::make_shared<Watched>(
        [&](const std::stop_token& terminated) {
            passed.get_future().wait();
            cell->Set(COtxValue());
            wasTerminated.set_value(terminated.stop_requested());
        },
        end)));
    const COtxValue service = start(cell->Value());
    passed.set_value();
    EXPECT_TRUE(wasTerminated.get_future().get());
    EXPECT_EQ(endOf(service).Type(), OTX::ValueType::Empty);
    EXPECT_NE(end.get_future().get(), std::this_thread::get_id());
}

TEST(ServiceLife, BearsADisposalByItself) {
    std::promise<COtxValue> itself;
    const COtxValue provider = providerOf([&](const std::stop_token&) {
        const COtxValue own = itself.get_future().get();
        own.ServiceProvider().Dispose();
    });
    const COtxValue service = start(provider);
    itself.set_value(provider);
    EXPECT_EQ(endOf(service).Type(), OTX::ValueType::Empty);
    EXPECT_TRUE(provider.ServiceProvider().IsDisposed().Bool());
}

TEST(ServiceLife, LeavesNoThreadsOfServicesThatEnded) {
    std::atomic<int> running{0};
    const COtxValue provider = providerOf([&](const std::stop_token&) { ++running; });
    for (int round = 0; round < 2000; ++round) endOf(start(provider));
    EXPECT_EQ(running, 2000);
}

// The process ends in the middle of a service, with the provider still there.
TEST(ServiceLifeDeathTest, AProcessMayExitWhileAServiceRuns) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            std::promise<void> began;
            static auto* const kept = new COtxValue(providerOf([&](const std::stop_token& terminated) {
                began.set_value();
                lastUntilTerminated(terminated);
            }));
            start(*kept);
            began.get_future().wait();
            std::exit(7);
        },
        testing::ExitedWithCode(7), "");
}

// The same with a provider in a static object, which waits for the service.
TEST(ServiceLifeDeathTest, AProviderMayBeStatic) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            static COtxValue provider = providerOf(lastUntilTerminated);
            start(provider);
            std::exit(7);
        },
        testing::ExitedWithCode(7), "");
}

}  // namespace
