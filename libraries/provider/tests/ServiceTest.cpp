// Services of the base: handles, ends and their events.
#include <otx/event/COtxMultiEventSource.h>
#include <otx/value/COtxInt.h>
#include <pthread.h>

#include <future>
#include <stdexcept>
#include <thread>

#include "Fixture.h"

namespace {

using namespace ExternalServiceProvider;

// A service that ends when the test lets it, or when it is asked to.
struct Gate {
    std::promise<void> opened;
    std::shared_future<void> open = opened.get_future().share();

    ServiceWork work() {
        return [gate = open](const std::stop_token&) { gate.wait(); };
    }
};

// One that lasts until it is asked to end.
void lastUntilTerminated(const std::stop_token& terminated) {
    std::promise<void> asked;
    const std::stop_callback callback(terminated, [&] { asked.set_value(); });
    asked.get_future().wait();
}

TEST(Service, RunsOnAThreadOfItsOwnAndTellsItsEnd) {
    Gate gate;
    const COtxValue provider = providerOf(gate.work());
    const COtxValue service = start(provider);
    EXPECT_EQ(service.stringType(), "ServiceProviderService");
    EXPECT_TRUE(isRunning(service));
    gate.opened.set_value();
    EXPECT_EQ(endOf(service).Type(), OTX::ValueType::Empty);
    EXPECT_FALSE(isRunning(service));
}

TEST(Service, GivesASourceThatFiresOnceToEachThatAsks) {
    Gate gate;
    const COtxValue provider = providerOf(gate.work());
    const COtxValue service = start(provider);
    const COtxValue first = service.ServiceProviderService().FinishedEventSource();
    const COtxValue second = service.ServiceProviderService().FinishedEventSource();
    service.ServiceProviderService().FinishedEventSource();  // dropped
    gate.opened.set_value();
    for (const COtxValue& source : {first, second, service.ServiceProviderService().FinishedEventSource()}) {
        COtxValue event;
        EXPECT_TRUE(source.EventSource().Wait(event));
        EXPECT_EQ(event.Event().Kind(), 6);
    }
    endOf(service);
    endOf(service);
}

TEST(Service, HasSourcesThatCanBeMembers) {
    const COtxValue provider = providerOf([](const std::stop_token&) {});
    const COtxMultiEventSource all;
    EXPECT_TRUE(all.EventSource().Add(start(provider).ServiceProviderService().FinishedEventSource()));
    COtxValue event;
    EXPECT_TRUE(all.EventSource().Wait(event));
    EXPECT_EQ(event.Event().Kind(), 6);
}

TEST(Service, HasSourcesThatCanBeClosedApart) {
    Gate gate;
    const COtxValue provider = providerOf(gate.work());
    const COtxValue service = start(provider);
    const COtxValue closed = service.ServiceProviderService().FinishedEventSource();
    closed.EventSource().Close();
    gate.opened.set_value();
    endOf(service);
    COtxValue event;
    EXPECT_FALSE(closed.EventSource().Wait(event));
}

TEST(Service, IsTerminatedWithoutAWait) {
    const COtxValue provider = providerOf(lastUntilTerminated);
    const COtxValue service = start(provider);
    EXPECT_TRUE(service.ServiceProviderService().Terminate().Bool());
    endOf(service);
    EXPECT_FALSE(service.ServiceProviderService().Terminate().Bool()) << "it has ended already";
}

TEST(Service, TellsWhatEndedIt) {
    for (const auto& [work, words] : std::vector<std::pair<ServiceWork, std::string>>{
             {[](const std::stop_token&) { throw COtxException(OTX::Exceptions_e::ArithmeticException, "by zero"); },
              "3: by zero"},
             {[](const std::stop_token&) { throw std::runtime_error("broken"); }, "22: Service: broken"},
             {[](const std::stop_token&) { throw 5; }, "22: Service: threw something that is no exception"},
             {[](const std::stop_token&) { throw COtxValue(COtxInt(5)); }, "22: Service: threw a value of type Integer"},
             {[](const std::stop_token&) { pthread_exit(nullptr); }, "22: The thread of the service was ended"}}) {
        const COtxValue provider = providerOf(work);
        const COtxValue service = start(provider);
        const COtxValue failure = endOf(service);
        EXPECT_EQ(thrownBy([&] { throw failure; }), words);
        EXPECT_FALSE(isRunning(service));
        EXPECT_EQ(endOf(service).Type(), OTX::ValueType::Exception) << "later sources have it too";
    }
}

TEST(Service, LetsGoOfItsWorkBeforeItTellsItsEnd) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> seen = held;
    auto factory = [&] { return [kept = std::move(held)](const std::stop_token&) {}; };
    class Once final : public Provider {
    public:
        explicit Once(ServiceWork given) : work(std::move(given)) {}
        ServiceWork Execute(const std::string&, const ProviderArguments&, const ProviderVariables&) override {
            return std::move(work);
        }
        ServiceWork work;
    };
    const COtxValue provider = MakeProvider(std::make_shared<Once>(factory()));
    endOf(start(provider));
    EXPECT_TRUE(seen.expired());
}

TEST(Service, IsTerminatedAndAskedByManyThreads) {
    const COtxValue provider = providerOf(lastUntilTerminated);
    for (int round = 0; round < 100; ++round) {
        const COtxValue service = start(provider);
        std::vector<std::thread> threads;
        threads.emplace_back([&] { endOf(service); });
        threads.emplace_back([&] {
            while (isRunning(service)) std::this_thread::yield();
        });
        threads.emplace_back([&] { service.ServiceProviderService().Terminate(); });
        threads.emplace_back([&] { service.ServiceProviderService().Terminate(); });
        for (std::thread& thread : threads) thread.join();
    }
}

}  // namespace
