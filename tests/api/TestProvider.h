// Providers and services that do what a test says, and a type of them.
#pragma once

#include <otx/diag/IServiceProvider.h>
#include <otx/event/COtxSignalEventSource.h>
#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/provider/HostInterface.h>
#include <otx/provider/ProviderTypes.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxValue.h>
#include <otx/value/COtxValueBehaviour.h>
#include <otx/value/OtxVariable.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace api {

// A handle with sources of the test.
class TestService final : public COtxValueBehaviour, public OTX::IServiceProviderService {
public:
    explicit TestService(std::function<COtxValue()> source)
        : COtxValueBehaviour(OTX::ValueType::ServiceProviderService), source_(std::move(source)) {}

    OTX::IServiceProviderService& ServiceProviderService() override { return *this; }
    COtxValue Terminate() override { return COtxBool(true); }
    COtxValue IsRunning() override { return COtxBool(true); }
    COtxValue FinishedEventSource() override { return source_(); }

private:
    const std::function<COtxValue()> source_;
};

inline COtxValue serviceWith(const COtxValue& source) {
    return COtxValue(std::make_shared<TestService>([source] { return source; }));
}

// A service that has ended.
inline COtxValue endedService() {
    return COtxValue(std::make_shared<TestService>([] {
        const COtxSignalEventSource source(OTX::EventKind::ServiceExecutionFinished);
        source.EventSource().Signal();
        return source;
    }));
}

// What one provider is told; its services have ended unless the test says otherwise.
struct ProviderScript {
    using Values = std::map<std::string, COtxValue>;
    using Cells = std::map<std::string, std::shared_ptr<OtxVariable>>;

    std::function<COtxValue(const std::string& service, const Values& in, const Cells& inout, const Cells& out)> execute =
        [](const std::string&, const Values&, const Cells&, const Cells&) { return endedService(); };
    std::function<void(const COtxValue& eventType, const COtxValue& message)> event = [](const COtxValue&,
                                                                                         const COtxValue&) {};
    std::function<void()> dispose = [] {};
};

class TestProvider final : public COtxValueBehaviour, public OTX::IServiceProvider {
public:
    explicit TestProvider(ProviderScript script)
        : COtxValueBehaviour(OTX::ValueType::ServiceProvider), script_(std::move(script)) {}

    OTX::IServiceProvider& ServiceProvider() override { return *this; }
    COtxValue Execute(const std::string& service, const ProviderScript::Values& in, const ProviderScript::Cells& inout,
                      const ProviderScript::Cells& out) override {
        return script_.execute(service, in, inout, out);
    }
    void Event(const COtxValue& eventType, const COtxValue& message) override { script_.event(eventType, message); }
    void Dispose() override { script_.dispose(); }
    COtxValue IsDisposed() override { return COtxBool(true); }

private:
    const ProviderScript script_;
};

// A registered type, as long as it lives.
class TestType {
public:
    TestType(std::string name, ExternalServiceProvider::ProviderMaker maker) : name_(std::move(name)) {
        ExternalServiceProvider::RegisterProviderType(name_, std::move(maker));
    }
    TestType(std::string name, ProviderScript script)
        : TestType(std::move(name), [script = std::move(script)](const auto&, const auto&, const auto&) {
              return COtxValue(std::make_shared<TestProvider>(script));
          }) {}
    TestType(const TestType&) = delete;
    TestType& operator=(const TestType&) = delete;
    ~TestType() { ExternalServiceProvider::UnregisterProviderType(name_); }

private:
    const std::string name_;
};

}  // namespace api
