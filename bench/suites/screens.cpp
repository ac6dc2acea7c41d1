// What a screen costs the lanes that write its variables, while the host is held up, and how fast their changes arrive.
#include "Programs.h"

#include <otx/value/COtxString.h>
#include <otx/value/IString.h>

#include <condition_variable>
#include <mutex>
#include <stdexcept>

namespace {

constexpr long long written = 50'000;  // by each lane

// By the screen's name: "held" is kept in its first change until it is closed; "counted" counts, and the opening of "done"
// waits for the changes of both lanes.
class Operator : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue& message) override {
        const std::string type = entry(message, "eventType");
        const std::string screen = entry(message, "screenName");
        std::unique_lock guard(seenLock_);
        if (screen == "held") {
            if (type == "HMI-InParameterValueChanged")
                seenChanged_.wait(guard, [this] { return isHeldClosed_; });
            else
                isHeldClosed_ = type == "HMI-CloseScreen";
        } else if (screen == "counted" && type == "HMI-InParameterValueChanged") {
            ++seen_;
        } else if (screen == "done" && type == "HMI-OpenScreen") {
            seenChanged_.wait(guard, [this] { return seen_ == 2 * written; });
            seen_ = 0;
        }
        seenChanged_.notify_all();
    }

private:
    static std::string entry(const COtxValue& message, const char* key) { return message.Map().at(COtxString(key)).String(); }

    // Guards what follows.
    std::mutex seenLock_;
    std::condition_variable seenChanged_;
    bool isHeldClosed_ = false;
    long long seen_ = 0;
};

void screens(benchmark::State& state, const std::string& procedure) {
    runProcedure(state, "screens", procedure, written, {}, std::make_shared<Operator>());
}

}  // namespace

BENCHMARK_CAPTURE(screens, unbound, "unbound")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(screens, bound, "bound")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(screens, arrive, "arrive")->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
