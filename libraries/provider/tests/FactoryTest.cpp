// The factory: registered types, the providers that it made, and makers that fail.
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>
#include <pthread.h>

#include <atomic>
#include <stdexcept>
#include <thread>

#include "Fixture.h"

namespace {

using namespace ExternalServiceProvider;

class Factory : public ProviderLibrary {};

TEST_F(Factory, HandsTheMakerWhatItWasGiven) {
    std::shared_ptr<HostInterface> seenHost;
    std::string seenName;
    std::map<std::string, COtxValue> seenArguments;
    add("T", [&](const auto& itsHost, const std::string& name, const auto& arguments) {
        seenHost = itsHost;
        seenName = name;
        seenArguments = arguments;
        return providerOf([](const std::stop_token&) {});
    });
    const COtxValue provider = create("T", "Named", {{"a", COtxInt(1)}, {"b", COtxString("x")}});
    EXPECT_EQ(provider.Type(), OTX::ValueType::ServiceProvider);
    EXPECT_EQ(seenHost, host);
    EXPECT_EQ(seenName, "Named");
    ASSERT_EQ(seenArguments.size(), 2U);
    EXPECT_EQ(seenArguments["a"].Int(), 1);
}

TEST_F(Factory, RefusesAnUnknownType) {
    EXPECT_EQ(thrownBy([&] { create("Nobody"); }),
              "21: Unknown provider type 'Nobody': it isn't registered, and no folder of plug-ins is named");
}

TEST_F(Factory, RefusesATypeThatWasTakenBackAndKeepsItsProviders) {
    RegisterProviderType("T", [](const auto&, const auto&, const auto&) { return providerOf([](const std::stop_token&) {}); });
    const COtxValue provider = create("T");
    EXPECT_TRUE(UnregisterProviderType("T"));
    EXPECT_FALSE(UnregisterProviderType("T"));
    EXPECT_EQ(thrownBy([&] { create("T"); }),
              "21: Unknown provider type 'T': it isn't registered, and no folder of plug-ins is named");
    EXPECT_EQ(get("T").GetBehaviourReference(), provider.GetBehaviourReference());
}

TEST_F(Factory, RefusesATypeThatIsRegisteredTwice) {
    addScripted("T");
    EXPECT_EQ(thrownBy([&] { addScripted("T"); }), "24: Provider type 'T' is registered already");
}

TEST_F(Factory, RefusesTypesWithoutANameOrAMaker) {
    EXPECT_EQ(thrownBy([&] { addScripted(""); }), "24: A provider type needs a name");
    EXPECT_EQ(thrownBy([&] { add("T", nullptr); }), "24: Provider type 'T' needs a maker");
}

TEST_F(Factory, PassesTheExceptionsOfAMakerAndStatesEverythingElse) {
    add("Otx", [](const auto&, const auto&, const auto&) -> COtxValue {
        throw COtxException(OTX::Exceptions_e::ConfigurationException, "no port");
    });
    add("Standard", [](const auto&, const auto&, const auto&) -> COtxValue { throw std::runtime_error("broken"); });
    add("Number", [](const auto&, const auto&, const auto&) -> COtxValue { throw 5; });
    add("Value", [](const auto&, const auto&, const auto&) -> COtxValue { throw COtxValue(COtxInt(5)); });
    EXPECT_EQ(thrownBy([&] { create("Otx"); }), "24: no port");
    EXPECT_EQ(thrownBy([&] { create("Standard"); }), "21: Provider type 'Standard': broken");
    EXPECT_EQ(thrownBy([&] { create("Number"); }), "21: Provider type 'Number': threw something that is no exception");
    EXPECT_EQ(thrownBy([&] { create("Value"); }), "21: Provider type 'Value': threw a value of type Integer");
    EXPECT_EQ(thrownBy([&] { get("Otx"); }), "21: No provider of type 'Otx' has been created");
}

TEST_F(Factory, RefusesWhatIsNoProvider) {
    add("T", [](const auto&, const auto&, const auto&) { return COtxInt(1); });
    add("E", [](const auto&, const auto&, const auto&) { return COtxValue(); });
    EXPECT_EQ(thrownBy([&] { create("T"); }), "21: Provider type 'T': made a value of type Integer, which is no provider");
    EXPECT_EQ(thrownBy([&] { create("E"); }), "21: Provider type 'E': made a value of type Empty, which is no provider");
}

// A thread that is cancelled while it makes a provider ends, and the factory goes on working.
TEST_F(Factory, LetsTheUnwindingOfACancelledThreadPass) {
    std::atomic<bool> isUnwound{false};
    add("T", [&](const auto&, const std::string& name, const auto&) {
        if (name == "Ending") {
            struct Mark {
                ~Mark() { *seen = true; }
                std::atomic<bool>* seen;
            } const mark{&isUnwound};
            pthread_exit(nullptr);
        }
        return providerOf([](const std::stop_token&) {});
    });
    std::thread([&] {
        create("T", "Ending");
        ADD_FAILURE() << "the thread goes on";
    }).join();
    EXPECT_TRUE(isUnwound);
    EXPECT_EQ(create("T").Type(), OTX::ValueType::ServiceProvider);
}

TEST_F(Factory, GivesTheLastOfThoseThatLive) {
    addScripted("T");
    addScripted("U");
    EXPECT_EQ(thrownBy([&] { get("T"); }), "21: No provider of type 'T' has been created");
    const COtxValue first = create("T");
    const COtxValue other = create("U");
    EXPECT_EQ(get("T").GetBehaviourReference(), first.GetBehaviourReference());
    {
        const COtxValue second = create("T");
        EXPECT_EQ(get("T").GetBehaviourReference(), second.GetBehaviourReference());
    }
    EXPECT_EQ(get("T").GetBehaviourReference(), first.GetBehaviourReference());
    EXPECT_EQ(factory->Get("T", "ignored", {{"ignored", COtxInt(1)}}).GetBehaviourReference(), first.GetBehaviourReference());
}

TEST_F(Factory, KeepsNoProviderAlive) {
    addScripted("T");
    std::weak_ptr<COtxValueBehaviour> made;
    {
        const COtxValue provider = create("T");
        made = provider.GetBehaviourReference();
    }
    EXPECT_TRUE(made.expired());
    EXPECT_EQ(thrownBy([&] { get("T"); }), "21: No provider of type 'T' has been created");
}

TEST_F(Factory, HasProvidersOfItsOwn) {
    addScripted("T");
    const COtxValue provider = create("T");
    const auto another = GetServiceProviderFactory();
    EXPECT_EQ(thrownBy([&] { another->Get("T", "", {}); }), "21: No provider of type 'T' has been created");
}

TEST_F(Factory, GivesADisposedProviderToo) {
    addScripted("T");
    const COtxValue provider = create("T");
    provider.ServiceProvider().Dispose();
    EXPECT_TRUE(get("T").ServiceProvider().IsDisposed().Bool());
}

// A maker may register, take back and create: no lock is held while it runs.
TEST_F(Factory, BearsAMakerThatUsesIt) {
    addScripted("Inner");
    add("Outer", [&](const auto&, const auto&, const auto&) {
        EXPECT_TRUE(UnregisterProviderType("Outer"));
        return create("Inner");
    });
    EXPECT_EQ(create("Outer").Type(), OTX::ValueType::ServiceProvider);
}

TEST_F(Factory, BearsManyThreads) {
    addScripted("T");
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number)
        threads.emplace_back([&, name = std::string(1, static_cast<char>('a' + number))] {
            for (int round = 0; round < 200; ++round) {
                RegisterProviderType(name, [](const auto&, const auto&, const auto&) {
                    return providerOf([](const std::stop_token&) {});
                });
                const COtxValue own = create(name);
                const COtxValue shared = create("T");
                EXPECT_EQ(get(name).GetBehaviourReference(), own.GetBehaviourReference());
                EXPECT_EQ(get("T").Type(), OTX::ValueType::ServiceProvider);
                EXPECT_TRUE(UnregisterProviderType(name));
            }
        });
    for (std::thread& thread : threads) thread.join();
}

}  // namespace
