// What a stop and the status tell about a run.
#include "BackgroundRun.h"
#include "Documents.h"
#include "StopHost.h"
#include "Values.h"

#include <otx/value/Functions.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using namespace api;

const std::string listVariable =
    "<variable id=\"dl\" name=\"l\"><realisation><dataType xsi:type=\"List\"><itemType xsi:type=\"Integer\"/></dataType>"
    "</realisation></variable>";

const std::string appendToList =
    "<action id=\"a2\"><realisation xsi:type=\"ListAppendItems\"><list name=\"l\"/><item xsi:type=\"IntegerLiteral\" "
    "value=\"7\"/></realisation></action>";

class Status : public testing::Test {
protected:
    void begin(const std::string& text) {
        sequencer = load(text);
        sequencer->SetHost(host);
    }

    COtxValue status(const std::string& parameters = "{}") { return sequencer->Control("status", value(parameters)); }

    std::shared_ptr<StopHost> host = std::make_shared<StopHost>();
    std::shared_ptr<velkotx::Sequencer> sequencer;
};

const std::string stoppedInSub =
    R"({"id":0,"name":"second","node":"a2","stack":["main","sub"],"state":"STOPPED",)"
    R"("type":"class otxns::Assignment_impl<class otxns::Assignment_base>","vars":{"n":5}})";

const std::string twoProcedures = document(
    procedure("main", call("a1", "sub"), "", integer("variable", "m", 4)) +
        procedure("sub", set("a2\" name=\"second", "n", 6), "", integer("variable", "n", 5)),
    integer("variable", "g", 1));

TEST_F(Status, OfAStoppedFlow) {
    begin(twoProcedures);
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    sequencer->Control("step", COtxValue());
    EXPECT_EQ(json(host->nextMessage()), R"({"eventType":"FlowStopped","status":)" + stoppedInSub + "}");
    EXPECT_EQ(json(status()), R"({"flows":[)" + stoppedInSub + R"(],"globalvars":{"g":1}})");
    EXPECT_EQ(json(status(R"({"flowId":0})")), R"({"flows":[)" + stoppedInSub + R"(],"globalvars":{"g":1}})");
    sequencer->Control("run", COtxValue());
    EXPECT_EQ(run.outcome(), "{}");
}

TEST_F(Status, OfARunningFlowIsShort) {
    begin(document(procedure("main", forEver("l1", ""))));
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    sequencer->Control("run", COtxValue());
    run.waitUntilRunning(0);
    EXPECT_EQ(json(status()), R"({"flows":[{"id":0,"state":"RUNNING"}],"globalvars":{}})");
}

TEST_F(Status, OfANodeWithoutAName) {
    begin(document(procedure("main", set("a1", "n", 6), "", integer("variable", "n", 5))));
    BackgroundRun run(sequencer, "main", true);
    EXPECT_EQ(json(host->nextStop()),
              R"({"id":0,"node":"a1","stack":["main"],"state":"STOPPED",)"
              R"("type":"class otxns::Assignment_impl<class otxns::Assignment_base>","vars":{"n":5}})");
}

TEST_F(Status, IsNarrowedToOneFlow) {
    begin(document(procedure("main", set("a1", "n", 6), "", integer("variable", "n", 5))));
    BackgroundRun first(sequencer, "main", true);
    host->nextStop();
    BackgroundRun second(sequencer, "main", true);
    host->nextStop();
    const auto idsOf = [this](const std::string& parameters) {
        std::string ids;
        const COtxValue flows = OTX::GetParameter(status(parameters), "flows", OTX::ValueType::List);
        for (const COtxValue& flow : flows.List())
            ids += json(OTX::GetParameter(flow, "id", OTX::ValueType::Integer));
        return ids;
    };
    EXPECT_EQ(idsOf(R"({"flowId":0})"), "0");
    EXPECT_EQ(idsOf(R"({"flowId":1})"), "1");
    const std::string both = idsOf("{}");
    EXPECT_TRUE(both == "01" || both == "10") << both;
    EXPECT_EQ(outcomeOfControl(*sequencer, "status", R"({"flowId":2})"), "failure Invalid thread id: 2");
}

TEST_F(Status, DoesNotChangeWithLaterAssignments) {
    begin(document(procedure("main", set("a1", "g", 2) + appendToList + set("a3", "n", 2), "",
                             listVariable + integer("variable", "n", 5)),
                   integer("variable", "g", 1)));
    BackgroundRun run(sequencer, "main", true);
    const COtxValue stop = host->nextStop();
    const COtxValue reply = status();
    const std::string stopText = json(stop);
    const std::string replyText = json(reply);
    EXPECT_TRUE(replyText.find(R"("vars":{"l":[],"n":5})") != std::string::npos) << replyText;
    sequencer->Control("run", COtxValue());
    EXPECT_EQ(run.outcome(), "{}");
    EXPECT_EQ(json(stop), stopText);
    EXPECT_EQ(json(reply), replyText);
}

TEST_F(Status, ShowsValuesInTheOtxForm) {
    begin(document(
        procedure("main", set("a1", "n", 6), "",
                  integer("variable", "n", 5) +
                      "<variable id=\"dx\" name=\"x\"><realisation><dataType xsi:type=\"ByteField\"><init value=\"0F\"/></dataType>"
                      "</realisation></variable>"),
        "<variable id=\"dy\" name=\"y\"><realisation><dataType xsi:type=\"ByteField\"><init value=\"A0\"/></dataType></realisation>"
        "</variable>"));
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    const std::string text = json(status());
    EXPECT_TRUE(text.find(R"("vars":{"n":5,"x":{"ByteField":"0F"}})") != std::string::npos) << text;
    EXPECT_TRUE(text.ends_with(R"("globalvars":{"y":{"ByteField":"A0"}}})")) << text;
}

TEST_F(Status, ShowsADeclaredVariableWithoutAValueAsEmpty) {
    begin(document(procedure("main", set("a1", "n", 6), "",
                             integer("variable", "n", 5) +
                                 "<variable id=\"de\" name=\"e\"><realisation><dataType xsi:type=\"Exception\"/></realisation>"
                                 "</variable>")));
    BackgroundRun run(sequencer, "main", true);
    const std::string text = json(host->nextStop());
    EXPECT_TRUE(text.ends_with(R"("vars":{"e":null,"n":5}})")) << text;
}

TEST_F(Status, KeepsTheGlobalsAfterTheRun) {
    begin(document(procedure("main", set("a1", "g", 2)), integer("variable", "g", 1)));
    EXPECT_EQ(json(status()), R"({"flows":[],"globalvars":{}})");
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
    EXPECT_EQ(json(status()), R"({"flows":[],"globalvars":{"g":2}})");
}

TEST_F(Status, ShowsAFlowThatAnExceptionHasLeftBehind) {
    begin(document(procedure("main", throwUser("t1", "q", "t"))));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "exception UserException: t");
    EXPECT_EQ(json(status()), R"({"flows":[{"id":0,"state":"RUNNING"}],"globalvars":{}})");
}

}  // namespace
