// What the host gets to read: containers that lanes go on changing, and values in their OTX form of JSON.
#include "Documents.h"
#include "LaneDocuments.h"
#include "ScreenTest.h"
#include "Values.h"

#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>

#include <mutex>
#include <string>
#include <vector>

namespace {

using namespace api;

constexpr int rounds = 300;

// A modifying action; the field names the variable.
std::string change(const std::string& id, const std::string& realisation, const std::string& field, const std::string& content) {
    return "<action id=\"" + id + "\"><realisation xsi:type=\"" + realisation + "\">" + field + content +
           "</realisation></action>";
}

// A write of the value that the variable has: the screen is told, and the content stays shared.
std::string again(const std::string& id, const std::string& type, const std::string& variable) {
    return assignTerm(id, type + "Variable", variable, type + "Value\" valueOf=\"" + variable + "\">");
}

std::string containers() {
    return listOf("variable", "list") +
           declared("variable", "map", "Map\"><keyType xsi:type=\"Integer\"/><valueType xsi:type=\"Integer\"/>") +
           declared("variable", "bytes", "ByteField\">") + integer("variable", "i", 0) + integer("variable", "j", 0);
}

const std::vector<ScreenArgument> shown{
    {"inArg", "list", "list", "List"}, {"inArg", "map", "map", "Map"}, {"inArg", "bytes", "bytes", "ByteField"}};

class ScreenContent : public ScreenTest {};

TEST_F(ScreenContent, IsASnapshotWhileLanesGoOn) {
    const std::string changes =
        append("b1", "list") +
        change("b2", "MapPutItems", "<map name=\"map\"/>",
               "<item><key xsi:type=\"IntegerValue\" valueOf=\"i\"/><value xsi:type=\"IntegerLiteral\" value=\"1\"/></item>") +
        change("b3", "AppendByteField", "<byteField name=\"bytes\"/>",
               "<otherByteField xsi:type=\"ByteFieldLiteral\" value=\"AB\"/>");
    const std::string writes = again("c1", "List", "list") + again("c2", "Map", "map") + again("c3", "ByteField", "bytes");
    beginScreens(parallel("n1", {loopOf("l1", "i", rounds, changes),
                                 loopOf("l2", "j", rounds, writes + openScreen("c4", "panel", shown))}),
                 "", containers());
    std::atomic<std::size_t> rendered{0};
    std::atomic<int> heardOf{0};
    host->reaction = [&](const COtxValue& message) {
        if (!isMessage(message, opened, "panel") && !isMessage(message, changed, "panel")) return;
        const std::string before = json(message);
        rendered += before.size();
        // Whatever the lanes do meanwhile.
        EXPECT_EQ(json(message), before);
        ++heardOf;
    };
    startUntilOpen("keys");
    go();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_GE(heardOf, rounds);
    EXPECT_GT(rendered, 0U);
}

TEST_F(ScreenContent, StandsInTheOtxForm) {
    const auto empty = [](const std::string& id) {
        return assignTerm(id, "e:EventSourceVariable", "none",
                          "h:ScreenClosedEventSource\"><h:screen xsi:type=\"h:ScreenValue\" valueOf=\"a\"/>");
    };
    beginScreens(change("a1", "MapPutItems", "<map name=\"map\"/>",
                        "<item><key xsi:type=\"IntegerLiteral\" value=\"1\"/><value xsi:type=\"IntegerLiteral\" "
                        "value=\"2\"/></item>") +
                     empty("a0") +
                     openScreen("a2", "panel", {{"inArg", "map", "map", "Map"}, {"inArg", "none", "none", "e:EventSource"}}) +
                     again("a3", "Map", "map") +
                     empty("a4"),
                 "", containers() + source("variable", "none"));
    std::mutex textsLock;
    std::vector<std::string> texts;
    host->reaction = [&](const COtxValue& message) {
        if (!isMessage(message, opened, "panel") && !isMessage(message, changed, "panel")) return;
        const std::lock_guard guard(textsLock);
        texts.push_back(json(message));
    };
    startUntilOpen("panel");
    heard(changed, "panel");
    heard(changed, "panel");
    go();
    EXPECT_EQ(outcome(), "{}");
    const std::lock_guard guard(textsLock);
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_EQ(json(value(R"({"Map":[[1,2]]})")), "[[1,2]]") << "the other form";
    EXPECT_EQ(texts[0], R"({"eventType":"HMI-OpenScreen","modal":false,"parameters":{"map":{"Map":[[1,2]]},"none":null},"screenName":"panel"})");
    EXPECT_EQ(texts[1], R"({"eventType":"HMI-InParameterValueChanged","parameters":{"map":{"Map":[[1,2]]}},"screenName":"panel"})");
    EXPECT_EQ(texts[2], R"({"eventType":"HMI-InParameterValueChanged","parameters":{"none":null},"screenName":"panel"})");
}

}  // namespace
