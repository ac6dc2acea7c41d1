// The value of a provider that derives from the base: calls, failures, disposal.
#include <otx/value/COtxString.h>

#include <atomic>
#include <stdexcept>
#include <thread>

#include "Fixture.h"

namespace {

using namespace ExternalServiceProvider;

void throwByName(const std::string& name) {
    if (name == "otx") throw COtxException(OTX::Exceptions_e::OutOfBoundsException, "far out");
    if (name == "standard") throw std::runtime_error("broken");
    if (name == "number") throw 5;
}

class Failing final : public Provider {
public:
    ServiceWork Execute(const std::string& service, const ProviderArguments&, const ProviderVariables&) override {
        throwByName(service);
        return nullptr;
    }
    void Event(const std::string& eventType, const COtxValue& message) override {
        throwByName(eventType);
        Provider::Event(eventType, message);
    }
};

void sendEvent(const COtxValue& provider, const std::string& type) {
    provider.ServiceProvider().Event(COtxString(type), COtxValue());
}

TEST(ProviderValue, StatesTheFailuresOfExecute) {
    const COtxValue provider = MakeProvider(std::make_shared<Failing>());
    EXPECT_EQ(thrownBy([&] { start(provider, "otx"); }), "2: far out");
    EXPECT_EQ(thrownBy([&] { start(provider, "standard"); }), "22: Service 'standard': broken");
    EXPECT_EQ(thrownBy([&] { start(provider, "number"); }), "22: Service 'number': threw something that is no exception");
    EXPECT_EQ(thrownBy([&] { start(provider, "lazy"); }), "22: Service 'lazy': has no work");
}

TEST(ProviderValue, StatesTheFailuresOfEvents) {
    const COtxValue provider = MakeProvider(std::make_shared<Failing>());
    EXPECT_EQ(thrownBy([&] { sendEvent(provider, "otx"); }), "2: far out");
    EXPECT_EQ(thrownBy([&] { sendEvent(provider, "standard"); }), "22: Event 'standard': broken");
    EXPECT_EQ(thrownBy([&] { sendEvent(provider, "number"); }), "22: Event 'number': threw something that is no exception");
    EXPECT_EQ(thrownBy([&] { sendEvent(provider, "ESP-X"); }), "21: The provider knows no event 'ESP-X'");
    EXPECT_EQ(thrownBy([&] { provider.ServiceProvider().Event(COtxValue(), COtxValue()); }).substr(0, 3), "5: ");
}

TEST(ProviderValue, RefusesEverythingButIsDisposedOnceItIsDisposed) {
    const COtxValue provider = providerOf([](const std::stop_token&) {});
    OTX::IServiceProvider& interface = provider.ServiceProvider();
    EXPECT_FALSE(interface.IsDisposed().Bool());
    interface.Dispose();
    EXPECT_TRUE(interface.IsDisposed().Bool());
    const std::string disposed = "23: The provider has been disposed of";
    EXPECT_EQ(thrownBy([&] { start(provider); }), disposed);
    EXPECT_EQ(thrownBy([&] { sendEvent(provider, "ESP-X"); }), disposed);
    EXPECT_EQ(thrownBy([&] { interface.Dispose(); }), disposed);
    EXPECT_TRUE(interface.IsDisposed().Bool());
}

TEST(ProviderValue, IsDisposedOnceWhenManyThreadsTry) {
    for (int round = 0; round < 100; ++round) {
        const COtxValue provider = providerOf([](const std::stop_token& terminated) {
            while (!terminated.stop_requested()) std::this_thread::yield();
        });
        std::atomic<int> disposals{0};
        std::vector<std::thread> threads;
        for (int number = 0; number < 3; ++number)
            threads.emplace_back([&] {
                // Started services end, others are refused: none runs behind the last disposal.
                thrownBy([&] { start(provider); });
                if (thrownBy([&] { provider.ServiceProvider().Dispose(); }) == "nothing thrown") ++disposals;
            });
        for (std::thread& thread : threads) thread.join();
        EXPECT_EQ(disposals, 1);
    }
}

TEST(ProviderValue, IsOfItsTypeAndEqualsItselfOnly) {
    const COtxValue provider = providerOf([](const std::stop_token&) {});
    const COtxValue copy = provider;
    EXPECT_EQ(provider.stringType(), "ServiceProvider");
    EXPECT_TRUE(provider == copy);
    EXPECT_FALSE(provider == providerOf([](const std::stop_token&) {}));
    EXPECT_EQ(thrownBy([&] { provider.ServiceProviderService(); }).substr(0, 3), "5: ");
}

TEST(MadeProvider, OfNothingIsRefused) {
    EXPECT_THROW(ExternalServiceProvider::MakeProvider(nullptr), COtxException);
}

}  // namespace
