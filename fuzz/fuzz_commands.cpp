// Lines of commands and events for a run with screens, lanes and providers. A line is the command's word and its parameters
// as JSON, "stop {}", or "event" and the event as JSON. Whatever they are, the run can be cancelled afterwards.
#include "Abort.h"

#include "Documents.h"
#include "LaneDocuments.h"
#include "ProviderDocuments.h"
#include "ScreenDocuments.h"
#include "TestProvider.h"

#include <otx/value/IException.h>
#include <otx/value/IString.h>
#include <otx/value/Json.h>
#include <velkotx/LoopExceptions.h>
#include <velkotx/Sequencer.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <future>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>

namespace {

using namespace api;

constexpr std::size_t mostLines = 32;
// For what takes milliseconds.
constexpr std::chrono::seconds longest{20};

std::string sequence() {
    const std::vector<ScreenArgument> arguments{{"inArg", "x", "x"}, {"inoutArg", "y", "y"}, {"outArg", "z", "z"},
                                                {"inArg", "l", "l", "List"}};
    const std::string lists = listOf("variable", "l") + handleOf("p", "p") + handleOf("q", "q") + source("variable", "m");
    const std::string first = openScreen("a1", "p", arguments) + increment("a2", "x") + waitFor("a3", {"m"}) +
                              openScreen("a4", "q", arguments, true) + closeScreen("a5", "p");
    const std::string second = handler("h1", increment("b1", "y") + append("b2", "l") + waitForTerm("b3", timer(1)),
                                       set("b4", "y", 0), increment("b5", "x"));
    const std::string third = createProvider("c1", "s", "Fuzzed") + waitForTerm("c2", timer(3600000));
    return document(procedure("main", makeMonitor("m1", "m", "z") +
                                          parallel("n1", {first, forEver("l1", second), third, inputDialog("d1", "t")})),
                    integer("variable", "x", 0) + integer("variable", "y", 0) + integer("variable", "z", 0) + lists +
                        text("variable", "t", "") + providerVariable("s"));
}

std::string compiled() {
    std::ostringstream out;
    load(sequence())->Save(out);
    return std::move(out).str();
}

// Looks at all of each message.
class ReadingHost : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue& message) override {
        if (message.ToJSON().String().empty()) fuzz::fail("an empty message");
        std::call_once(isReached_, [this] { reached_.set_value(); });
    }
    // Returns when the run has opened a screen.
    void awaitFirst() {
        if (reached_.get_future().wait_for(longest) != std::future_status::ready) fuzz::fail("the run doesn't begin");
    }

private:
    std::once_flag isReached_;
    std::promise<void> reached_;
};

// Every failure that is stated for commands, events and runs.
template <class Work>
void attempt(const Work& work) {
    try {
        work();
    } catch (const COtxValue& exception) {
        if (exception.Type() != OTX::ValueType::Exception) fuzz::fail("something that is no exception");
    } catch (const std::exception&) {
        // Stated.
    }
}

void command(velkotx::Sequencer& sequencer, const std::string& line) {
    const std::size_t space = line.find(' ');
    const std::string word = line.substr(0, space);
    const std::string json = space == std::string::npos ? "{}" : line.substr(space + 1);
    attempt([&] {
        const COtxValue parameters = OTX::FromJSON(json);
        if (word == "event")
            sequencer.SendEvent(parameters);
        else
            static_cast<void>(sequencer.Control(word, parameters).ToJSON());
    });
}

void endRun(velkotx::Sequencer& sequencer, const std::future<void>& run) {
    const auto deadline = std::chrono::steady_clock::now() + longest;
    do {
        attempt([&] { sequencer.Control("cancel", COtxValue()); });
        if (std::chrono::steady_clock::now() > deadline) fuzz::fail("the run can't be cancelled");
    } while (run.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const TestType provider("Fuzzed", ProviderScript());
    static const std::string document = compiled();
    std::istringstream stream(document);
    const auto sequencer = velkotx::CreateSequencer(stream);
    const auto host = std::make_shared<ReadingHost>();
    sequencer->SetHost(host);
    const auto run = std::async(std::launch::async,
                                [&] { attempt([&] { sequencer->Run("main", COtxValue(), false); }); });
    host->awaitFirst();
    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    std::string line;
    for (std::size_t count = 0; count < mostLines && std::getline(lines, line); ++count) command(*sequencer, line);
    endRun(*sequencer, run);
    return 0;
}
