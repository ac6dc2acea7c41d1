// The reports of state variables.
#include "BackgroundRun.h"
#include "Documents.h"
#include "LaneDocuments.h"
#include "Values.h"

#include <otx/value/Functions.h>
#include <otx/value/Values.h>

#include <velkotx/HostEventSink.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace api;

std::string state(const std::string& name, const std::string& dataType) {
    return "<context xsi:type=\"s:StateVariableDeclaration\" xmlns:s=\"http://iso.org/OTX/1.0.0/StateVariable\" id=\"d-" + name +
           "\" name=\"" + name + "\"><realisation>" + dataType + "</realisation></context>";
}
const std::string counter = state("v", "<dataType xsi:type=\"Integer\"><init value=\"1\"/></dataType>");
const std::string items = state("v", "<dataType xsi:type=\"List\"><itemType xsi:type=\"Integer\"/></dataType>");

// Of another type than Integer; the term without its own tag.
std::string assign(const std::string& id, const std::string& type, const std::string& term) {
    return "<action id=\"" + id + "\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"" + type +
           "Variable\" name=\"v\"/><term xsi:type=\"" + type + term + "</term></realisation></action>";
}

// Keeps the very messages, not copies.
class MessageHost : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue& message) override {
        {
            const std::lock_guard guard(messagesLock_);
            messages.push_back(message);
        }
        if (reaction) reaction();
    }
    std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (const COtxValue& message : messages) all.push_back(json(message));
        return all;
    }

    std::vector<COtxValue> messages;
    std::function<void()> reaction;

private:
    // Guards messages during a run.
    std::mutex messagesLock_;
};

std::string changed(const std::string& value) { return R"({"eventType":"StateVariableChanged","name":"v","value":)" + value + "}"; }

class StateVariable : public testing::Test {
protected:
    void begin(const std::string& procedures, const std::string& globals = counter) {
        sequencer = load(document(procedures, globals));
        sequencer->SetHost(host);
    }
    std::string run(const std::string& flow, const std::string& globals = counter, const std::string& locals = "") {
        begin(procedure("main", flow, "", locals), globals);
        return outcomeOfRun(*sequencer, "main");
    }
    std::string global() {
        const COtxValue status = sequencer->Control("status", value("{}"));
        return json(OTX::GetParameter(OTX::GetParameter(status, "globalvars", OTX::ValueType::Map), "v", OTX::ValueType::Empty));
    }
    using Texts = std::vector<std::string>;

    std::shared_ptr<MessageHost> host = std::make_shared<MessageHost>();
    std::shared_ptr<velkotx::Sequencer> sequencer;
};

TEST_F(StateVariable, ReportsNothingWhenItIsDeclaredAndOneMessageForEachWrite) {
    EXPECT_EQ(run(doNothing("0")), "{}");
    EXPECT_EQ(host->texts(), Texts{});
    EXPECT_EQ(run(set("1", "v", 5) + set("2", "v", 5)), "{}");
    EXPECT_EQ(host->texts(), (Texts{changed("5"), changed("5")}));
}

TEST_F(StateVariable, ReportsItsValueInTheOtxForm) {
    EXPECT_EQ(run(assign("1", "ByteField", "Literal\" value=\"0A1B\">"), state("v", "<dataType xsi:type=\"ByteField\"/>")), "{}");
    EXPECT_EQ(host->texts(), Texts{changed(R"({"ByteField":"0A1B"})")});
}

TEST_F(StateVariable, HandsOverASnapshot) {
    EXPECT_EQ(run(assign("1", "List", "Literal\"><itemType xsi:type=\"Integer\"/>") + append("2", "v"), items), "{}");
    EXPECT_EQ(host->texts(), Texts{changed("[]")}) << "what a list holds is no write of the variable";
    EXPECT_EQ(global(), "[7]");
}

TEST_F(StateVariable, ReportsTheWritesOfLoopsAndCalls) {
    const std::string callee = procedure("callee", set("2", "p", 9), integer("inoutParam", "p", 0));
    const std::string calling =
        "<action id=\"3\"><realisation xsi:type=\"ProcedureCall\" procedure=\"callee\"><arguments><inoutArg param=\"p\">"
        "<variable xsi:type=\"IntegerVariable\" name=\"v\"/></inoutArg></arguments></realisation></action>";
    begin(procedure("main", loopOf("l", "v", 2, doNothing("1")) + calling) + callee);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
    const Texts texts = host->texts();
    ASSERT_GE(texts.size(), 2U);
    EXPECT_EQ(texts.back(), changed("9"));
    EXPECT_EQ(std::count(texts.begin(), texts.end(), changed("2")), 1);
}

TEST_F(StateVariable, TakesNoValueOfTheHost) {
    begin(procedure("main", doNothing("1")));
    sequencer->SetContextVariables(value(R"({"v":77})"));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
    EXPECT_EQ(global(), "1");
}

TEST_F(StateVariable, KeepsItsValueFromOneRunToTheNext) {
    begin(procedure("main", increment("1", "v")));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
    EXPECT_EQ(host->texts(), (Texts{changed("2"), changed("3")}));
}

TEST_F(StateVariable, HasTheNewValueWhenItReports) {
    begin(procedure("main", set("1", "v", 5)));
    std::string seen;
    host->reaction = [&] { seen = global(); };
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
    EXPECT_EQ(seen, "5");
}

TEST_F(StateVariable, HasTheNewValueThoughTheHostHasGone) {
    begin(procedure("main", set("1", "v", 5)));
    host.reset();
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "failure Host not available.: ");
    EXPECT_EQ(global(), "5");
}

TEST_F(StateVariable, HasTheNewValueThoughTheHostFails) {
    begin(procedure("main", set("1", "v", 5)));
    host->reaction = [] { throw std::logic_error("no"); };
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "other no");
    EXPECT_EQ(global(), "5");
}

TEST_F(StateVariable, IsReportedByEachLaneInItsOrder) {
    constexpr int passes = 200;
    const std::string first = loopOf("l1", "i1", passes, copyInteger("1", "v", "i1"));
    const std::string second = loopOf("l2", "i2", passes, increment("2", "i3") + copyInteger("3", "v", "i3"));
    EXPECT_EQ(run(parallel("p", {first, second}), counter,
                  integer("variable", "i1", 0) + integer("variable", "i2", 0) + integer("variable", "i3", passes)),
              "{}");
    ASSERT_EQ(host->messages.size(), 2U * passes);
    // The lanes' numbers differ, and so show whose report it is.
    std::vector<long long> last{0, passes};
    for (const COtxValue& message : host->messages) {
        const long long number = OTX::GetParameter(message, "value", OTX::ValueType::Integer).Int();
        EXPECT_EQ(++last[number > passes ? 1 : 0], number);
    }
}

TEST_F(StateVariable, BearsLanesThatChangeTheListThatIsReported) {
    constexpr int passes = 200;
    const std::string other = listOf("variable", "w");
    EXPECT_EQ(run(parallel("p", {loopOf("l1", "i1", passes, append("1", "w")), loopOf("l2", "i2", passes, assign("2", "List", "Value\" valueOf=\"w\">"))}),
                  items, other + integer("variable", "i1", 0) + integer("variable", "i2", 0)),
              "{}");
    EXPECT_EQ(host->messages.size(), std::size_t{passes});
}

}  // namespace
