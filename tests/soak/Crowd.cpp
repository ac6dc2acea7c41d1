// Many sequencers at once.
#include "Parts.h"
#include "Resident.h"

#include "Documents.h"
#include "LaneDocuments.h"
#include "ScreenDocuments.h"
#include "Session.h"
#include "ThreadCount.h"
#include "Until.h"
#include "Values.h"

#include <otx/value/Functions.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <deque>
#include <memory>
#include <vector>

namespace soak {

namespace {

using namespace api;

// The first round fills what stays for good, the second what threads that meet in other ways still add.
constexpr std::size_t warmUpRounds = 2;
constexpr std::size_t allowedPercent = 10;

std::string crowdDocument() {
    const std::vector<ScreenArgument> arguments{{"inoutArg", "x", "x"}, {"outArg", "go", "g"}};
    return document(procedure("main",
                              makeMonitor("s1", "go", "g") + openScreen("s2", "keys", arguments) +
                                  parallel("n1", {loopOf("l1", "i", 20, waitForTerm("w1", timer(1))),
                                                  loopOf("l2", "j", 20, increment("a1", "x")),
                                                  waitFor("w2", {"go"}) + set("a2", "o", 1)}),
                              integer("outParam", "o", 0), source("variable", "go")),
                    integer("variable", "x", 0) + integer("variable", "g", 0) + integer("variable", "i", 0) +
                        integer("variable", "j", 0));
}

// Counts the screens that it hears of.
class CountingHost : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue& message) override {
        if (OTX::GetParameter(message, "eventType", OTX::ValueType::String).String() == std::string("HMI-OpenScreen")) ++opened_;
    }
    std::size_t opened() const { return opened_; }

private:
    std::atomic<std::size_t> opened_{0};
};

// True until the screen is there: the host hears of it first.
bool isEarly(velkotx::Sequencer& sequencer, const COtxValue& event) {
    try {
        sequencer.SendEvent(event);
        return false;
    } catch (const std::exception&) {
        return true;
    }
}

bool runCrowd(const std::string& document, std::size_t count) {
    const auto host = std::make_shared<CountingHost>();
    std::deque<Session> sessions;
    while (sessions.size() != count) sessions.emplace_back(document, host);
    for (Session& session : sessions) session.start();
    // All of them are under way at once: none can end before the host lets it.
    waitUntil("the screens", [&] { return host->opened() == count; });
    const COtxValue go =
        value(R"({"eventType":"HMI-OutParameterValueChanged","screenName":"keys","parameters":{"go":1}})");
    for (Session& session : sessions) waitUntil("a screen", [&] { return !isEarly(session.sequencer(), go); });
    bool isGood = true;
    for (Session& session : sessions) {
        const std::string outcome = session.outcome();
        if (outcome == R"({"o":1})") continue;
        std::fprintf(stderr, "a run of many: %s\n", outcome.c_str());
        isGood = false;
    }
    return isGood;
}

}  // namespace

bool runCrowds(std::size_t sequencers, std::size_t rounds) {
    const std::string document = crowdDocument();
    const std::size_t threads = threadCount();
    std::size_t warm = 0;
    std::size_t largest = 0;
    for (std::size_t round = 0; round < rounds; ++round) {
        if (!runCrowd(document, sequencers)) return false;
        if (!isThreadCountReached(threads)) {
            std::fprintf(stderr, "threads are left after round %zu\n", round);
            return false;
        }
        largest = std::max(largest, residentMemory());
        if (round < warmUpRounds) warm = largest;
    }
    const std::size_t growth = largest - warm;
    std::printf("%zu times %zu sequencers at once: %zu bytes after the warm-up, %zu at the most, %zu more\n", rounds, sequencers,
                warm, largest, growth);
    return growth * 100 <= warm * allowedPercent;
}

}  // namespace soak
