// A factory, and types that last as long as a test.
#pragma once

#include <otx/diag/IServiceProvider.h>
#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/provider/HostInterface.h>
#include <otx/provider/Provider.h>
#include <otx/provider/ProviderTypes.h>
#include <otx/provider/ServiceProviderFactory.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Thrown.h"

// A host that nobody hears.
class DeafHost final : public ExternalServiceProvider::HostInterface {
public:
    void sendRequest(const COtxValue&) override {}
};

// A provider whose services do what the test says.
class Scripted final : public ExternalServiceProvider::Provider {
public:
    explicit Scripted(ExternalServiceProvider::ServiceWork work) : work_(std::move(work)) {}
    ExternalServiceProvider::ServiceWork Execute(const std::string&, const ExternalServiceProvider::ProviderArguments&,
                                                 const ExternalServiceProvider::ProviderVariables&) override {
        return work_;
    }

private:
    const ExternalServiceProvider::ServiceWork work_;
};

inline COtxValue providerOf(ExternalServiceProvider::ServiceWork work) {
    return ExternalServiceProvider::MakeProvider(std::make_shared<Scripted>(std::move(work)));
}

inline COtxValue start(const COtxValue& provider, const std::string& service = "S") {
    return provider.ServiceProvider().Execute(service, {}, {}, {});
}

inline bool isRunning(const COtxValue& service) { return service.ServiceProviderService().IsRunning().Bool(); }

// Waits for the end; gives the value of the event.
inline COtxValue endOf(const COtxValue& service) {
    const COtxValue source = service.ServiceProviderService().FinishedEventSource();
    COtxValue event;
    EXPECT_TRUE(source.EventSource().Wait(event));
    EXPECT_EQ(event.Event().Kind(), 6);
    return event.Event().Value();
}

class ProviderLibrary : public testing::Test {
protected:
    ~ProviderLibrary() override {
        for (const std::string& type : registered_) ExternalServiceProvider::UnregisterProviderType(type);
        ExternalServiceProvider::SetProviderFolder("");
    }

    void add(const std::string& type, ExternalServiceProvider::ProviderMaker maker) {
        ExternalServiceProvider::RegisterProviderType(type, std::move(maker));
        registered_.push_back(type);
    }
    // A type whose services do that.
    void addScripted(const std::string& type, ExternalServiceProvider::ServiceWork work = [](const std::stop_token&) {}) {
        add(type, [work](const auto&, const auto&, const auto&) { return providerOf(work); });
    }

    COtxValue create(const std::string& type, const std::string& constructorName = "",
                     const std::map<std::string, COtxValue>& arguments = {}) {
        return factory->Create(host, type, constructorName, arguments);
    }
    COtxValue get(const std::string& type) { return factory->Get(type, "", {}); }

    const std::shared_ptr<ExternalServiceProvider::HostInterface> host = std::make_shared<DeafHost>();
    const std::unique_ptr<ExternalServiceProvider::ServiceProviderFactory> factory =
        ExternalServiceProvider::GetServiceProviderFactory();

private:
    std::vector<std::string> registered_;
};
