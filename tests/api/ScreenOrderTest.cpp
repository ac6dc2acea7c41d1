// Changes reach the host complete and in the order in which each variable was written, however slow the host is.
#include "Documents.h"
#include "Gate.h"
#include "LaneDocuments.h"
#include "ScreenTest.h"

#include <otx/value/Functions.h>
#include <otx/value/IString.h>

#include <map>
#include <mutex>
#include <vector>

namespace {

using namespace api;

constexpr int writesOfALane = 50'000;

// Keeps no messages: there are too many.
class ForgetfulHost : public ReactingHost {
public:
    void sendRequest(const COtxValue& message) override { reaction(message); }
};

class ScreenOrder : public ScreenTest {
protected:
    // Two lanes write x and y, which a screen shows; then a screen tells that they are done.
    void beginLanes() {
        beginScreens(openScreen("a1", "panel", {{"inArg", "x", "x"}, {"inArg", "y", "y"}}) +
                         parallel("n1", {loopOf("l1", "i", writesOfALane, increment("b1", "x")),
                                         loopOf("l2", "j", writesOfALane, increment("c1", "y"))}) +
                         openScreen("a2", "done"),
                     "", integer("variable", "i", 0) + integer("variable", "j", 0));
        host = std::make_shared<ForgetfulHost>();
        sequencer().SetHost(host);
    }

    void note(const COtxValue& message) {
        const COtxValue parameters = OTX::GetParameter(message, "parameters", OTX::ValueType::Map);
        const std::lock_guard guard(seenLock_);
        for (const auto& [name, value] : parameters.Map()) seen_[name.String()].push_back(value.Int());
    }
    bool isAllSeen() {
        const std::lock_guard guard(seenLock_);
        return seen_["x"].size() + seen_["y"].size() >= 2U * writesOfALane;
    }
    void expectEveryWriteInOrder(const std::string& name) {
        const std::lock_guard guard(seenLock_);
        const auto& values = seen_[name];
        ASSERT_EQ(values.size(), static_cast<std::size_t>(writesOfALane));
        for (std::size_t place = 0; place < values.size(); ++place) ASSERT_EQ(values[place], static_cast<long long>(place) + 1);
    }
    void expectAll() {
        waitUntil("the last change", [this] { return isAllSeen(); });
        go();
        EXPECT_EQ(outcome(), "{}");
        expectEveryWriteInOrder("x");
        expectEveryWriteInOrder("y");
    }

private:
    std::mutex seenLock_;
    std::map<std::string, std::vector<long long>> seen_;
};

TEST_F(ScreenOrder, HoldsForAHostThatTakesThemAsTheyCome) {
    beginLanes();
    host->reaction = [&](const COtxValue& message) {
        if (isMessage(message, changed, "panel")) note(message);
    };
    start();
    expectAll();
}

// The lanes don't wait for it either: they are done before it takes the second change.
TEST_F(ScreenOrder, HoldsForAHostThatIsHeldUpUntilTheLanesAreDone) {
    beginLanes();
    Gate slow;
    host->reaction = [&](const COtxValue& message) {
        if (isMessage(message, opened, "done")) slow.open();
        if (!isMessage(message, changed, "panel")) return;
        slow.pass();
        note(message);
    };
    start();
    expectAll();
}

}  // namespace
