// Dialogs that several lanes open, and that a cancel or the end of all sources finds open.
#include "Documents.h"
#include "LaneDocuments.h"
#include "ScreenTest.h"
#include "ThreadCount.h"

#include <otx/value/Functions.h>
#include <otx/value/IString.h>

namespace {

using namespace api;

class ScreenDialog : public ScreenTest {
protected:
    static constexpr const char* dialog = "InputDialog";

    static std::string texts() { return text("variable", "t", "t") + text("variable", "u", "u"); }
    std::string textGlobal(const std::string& name) {
        const COtxValue globals = OTX::GetParameter(session->status(), "globalvars", OTX::ValueType::Map);
        return OTX::GetParameter(globals, name, OTX::ValueType::String).String();
    }
};

// One closure ends both; the answer goes to the dialog that was there first.
TEST_F(ScreenDialog, IsOneForTwoLanes) {
    const std::size_t threads = threadCount();
    begin(procedure("main", parallel("n1", {inputDialog("a1", "t") + set("a2", "x", 1), inputDialog("b1", "u") + set("b2", "y", 1)}) +
                                set("a3", "g", 1)),
          texts());
    start();
    heard(opened, dialog);
    heard(opened, dialog);
    waitUntil("the dialog", [this] { return isOpen(dialog); });
    EXPECT_EQ(outValue(sequencer(), dialog, "result", R"("answer")"), "");
    EXPECT_EQ(closedByOperator(sequencer(), dialog), "");
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x") + global("y") + global("g"), 3) << "both lanes have gone on";
    const std::string answers = textGlobal("t") + textGlobal("u");
    EXPECT_TRUE(answers == "answeru" || answers == "tanswer") << answers;
    session.reset();
    EXPECT_TRUE(isThreadCountReached(threads));
}

// The closure also reaches a lane that waits for it as for any event.
TEST_F(ScreenDialog, EndsForALaneThatWaitsForTheEventToo) {
    begin(procedure("main", openScreen("a1", "panel") +
                                assignTerm("a2", "e:EventSourceVariable", "closed",
                                           "h:ScreenClosedEventSource\"><h:screen xsi:type=\"h:ScreenValue\" "
                                           "valueOf=\"panel\"/>") +
                                parallel("n1", {openScreen("b1", "panel", {}, true) + set("b2", "x", 1),
                                                waitFor("c1", {"closed"}) + set("c2", "y", 1)})),
          handleOf("panel", "panel") + source("variable", "closed"));
    start();
    heard(opened, "panel");
    heard(opened, "panel");
    waitUntil("the waits", [this] { return flows().size() == 3; });
    EXPECT_EQ(closedByOperator(sequencer(), "panel"), "");
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x") + global("y"), 2);
}

TEST_F(ScreenDialog, ReturnsAtTheEndOfAllSources) {
    begin(procedure("main", inputDialog("a1", "t") + set("a2", "x", 1)), texts());
    start();
    heard(opened, dialog);
    // The source is made before the host hears of the dialog.
    EXPECT_EQ(control("closees"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x"), 1);
    EXPECT_EQ(textGlobal("t"), "t");
}

TEST_F(ScreenDialog, StopsAtTheNextNodeAfterACancel) {
    const std::size_t threads = threadCount();
    begin(procedure("main", inputDialog("a1", "t") + set("a2", "x", 1)), texts());
    start();
    heard(opened, dialog);
    EXPECT_EQ(control("cancel"), ok);
    heard(closing, dialog);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("x"), 0);
    EXPECT_EQ(textGlobal("t"), "t");
    EXPECT_FALSE(isOpen(dialog));
    session.reset();
    EXPECT_TRUE(isThreadCountReached(threads));
}

// The node at which a flow was stopped runs, also after a cancel.
TEST_F(ScreenDialog, ThatBeginsAfterACancelIsNotWaitedFor) {
    for (const std::string& node : {inputDialog("a1", "t"), openScreen("a1", "panel", {{"inArg", "x", "x"}}, true)}) {
        const std::size_t threads = threadCount();
        host = std::make_shared<ReactingHost>();
        begin(procedure("main", node + set("a2", "x", 1)), texts());
        setBreakpoints({"a1"});
        start();
        stopAt("a1");
        EXPECT_EQ(control("cancel"), ok);
        EXPECT_EQ(outcome(), cancelled);
        EXPECT_EQ(global("x"), 0);
        session.reset();
        EXPECT_TRUE(isThreadCountReached(threads));
    }
}

TEST_F(ScreenDialog, TakesItsAnswerBeforeTheClosureOnly) {
    begin(procedure("main", inputDialog("a1", "t") + inputDialog("a2", "u")), texts());
    start();
    for (const char* const answer : {"\"one\"", "\"two\""}) {
        heard(opened, dialog);
        waitUntil("the dialog", [this] { return isOpen(dialog); });
        EXPECT_EQ(outValue(sequencer(), dialog, "result", answer), "");
        EXPECT_EQ(closedByOperator(sequencer(), dialog), "");
    }
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(outValue(sequencer(), dialog, "result", "\"late\""), "Unknown screen: InputDialog");
    EXPECT_EQ(textGlobal("t") + textGlobal("u"), "onetwo");
}

}  // namespace
