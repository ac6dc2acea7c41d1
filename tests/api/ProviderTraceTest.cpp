// The lines that the actions of providers write to the trace.
#include "Documents.h"
#include "FlowTest.h"
#include "ProviderDocuments.h"
#include "TestProvider.h"

#include <otx/log/CLog.h>
#include <otx/provider/Provider.h>
#include <otx/value/COtxException.h>

#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace api;

class ProviderTrace : public FlowTest {
protected:
    ~ProviderTrace() override {
        Hvt::CLog::SetReportingLevel(3, -1);
        Hvt::CLog::SetSink({});
    }

    // The lines of these sources up to a level, with the level, from the function's name on.
    std::vector<std::string> linesOf(const std::string& flow, int level) {
        Hvt::CLog::SetSink([this](Hvt::TLogSubSys, int ofLine, const std::string& line) {
            const auto place = line.find("ExternalServiceProvider::");
            if (place == std::string::npos) return;
            const std::lock_guard guard(linesLock_);
            lines_.push_back(std::to_string(ofLine) + ' ' + line.substr(place));
        });
        Hvt::CLog::SetReportingLevel(3, level);
        begin(procedure("main", flow), providerVariable("p") + serviceVariable("h"));
        start();
        outcome_ = outcome();
        Hvt::CLog::SetReportingLevel(3, -1);
        std::vector<std::string> ours;
        for (const std::string& line : lines_)
            if (line.find("::exec:") != std::string::npos && line.find(":class ") == std::string::npos) ours.push_back(line);
        return ours;
    }

    std::string outcome_;

private:
    // Guards lines_.
    std::mutex linesLock_;
    std::vector<std::string> lines_;
};

std::string exec(const std::string& name) {
    return "ExternalServiceProvider::" + name + "_impl<class ExternalServiceProvider::" + name + "_base>::exec:";
}

TEST_F(ProviderTrace, TellsOfMakingExecutingAndTerminating) {
    const TestType type("T", ProviderScript());
    const auto lines = linesOf(createProvider("a1", "p", "T") + createProvider("a2", "p", "T", " constructor=\"C\"") +
                                   executeService("a3", "p", "S", "", "", "h") +
                                   executeService("a4", "p", "S", " executeAsync=\"true\"") + terminateService("a5", "h"),
                               4);
    EXPECT_EQ(outcome_, "{}");
    EXPECT_EQ(lines, (std::vector<std::string>{"4 " + exec("CreateProvider") + "CreateProviderT()",
                                               "4 " + exec("CreateProvider") + "CreateProviderT(C)",
                                               "4 " + exec("ExecuteService") + "Execute service sync: 0",
                                               "4 " + exec("ExecuteService") + "Execute service sync: 1",
                                               "4 " + exec("TerminateService") + "Terminate service provider service"}));
}

TEST_F(ProviderTrace, TellsOfAnEventOfAnotherKind) {
    ProviderScript script;
    script.execute = [](const auto&, const auto&, const auto&, const auto&) {
        const COtxSignalEventSource source(OTX::EventKind::TimerExpired);
        source.EventSource().Signal();
        return serviceWith(source);
    };
    const TestType type("T", script);
    const auto lines = linesOf(createProvider("a1", "p", "T") + executeService("a2", "p", "S"), 0);
    EXPECT_EQ(outcome_, "exception TypeMismatchException: ");
    EXPECT_EQ(lines, (std::vector<std::string>{
                         "0 " + exec("ExecuteService") + "Unexpected event type fired during service execution"}));
}

TEST_F(ProviderTrace, TellsOfAServiceThatFailsWhileItIsWaitedFor) {
    class Broken final : public ExternalServiceProvider::Provider {
        ExternalServiceProvider::ServiceWork Execute(const std::string& service,
                                                     const ExternalServiceProvider::ProviderArguments&,
                                                     const ExternalServiceProvider::ProviderVariables&) override {
            return [service](const std::stop_token&) {
                if (service == "Broken") throw std::runtime_error("broken inside");
                if (service == "Dividing") throw COtxException(OTX::Exceptions_e::ArithmeticException, "by zero");
            };
        }
    };
    ExternalServiceProvider::RegisterProviderType("T", [](const auto&, const auto&, const auto&) {
        return ExternalServiceProvider::MakeProvider(std::make_shared<Broken>());
    });
    const auto lines = linesOf(createProvider("a1", "p", "T") + executeService("a2", "p", "Sound") +
                                   executeService("a3", "p", "Broken") + executeService("a4", "p", "Dividing"),
                               0);
    ExternalServiceProvider::UnregisterProviderType("T");
    EXPECT_EQ(outcome_, "{}") << "the sequence hears nothing of it";
    EXPECT_EQ(lines, (std::vector<std::string>{
                         "0 " + exec("ExecuteService") +
                             "Service 'Broken' failed: ProviderServiceException: Service: broken inside",
                         "0 " + exec("ExecuteService") + "Service 'Dividing' failed: ArithmeticException: by zero"}));
}

}  // namespace
