// Cancelling a run while it looks through a string, and within a term whose work doubles with each level.
#include "BackgroundRun.h"
#include "Documents.h"
#include "StopHost.h"
#include "Values.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using namespace api;

// Takes more steps than a match may, so that it would end in an exception of its own.
std::string endlessMatch(const std::string& id) {
    return R"(<action id=")" + id + R"(" xmlns:s="http://iso.org/OTX/1.0.0/StringUtil">
                <realisation xsi:type="Assignment">
                  <result xsi:type="IntegerVariable" name="g"/>
                  <term xsi:type="ToInteger">
                    <term xsi:type="s:MatchToRegularExpression">
                      <s:string xsi:type="StringLiteral" value=")" + std::string(3000, 'a') + R"(bc"/>
                      <s:regexp xsi:type="StringLiteral" value="(a+)+\1b"/>
                    </term>
                  </term>
                </realisation>
              </action>)";
}

// Fails in SubString when the search has come to its end.
std::string longSearch(const std::string& id) {
    return R"(<action id=")" + id + R"(" xmlns:s="http://iso.org/OTX/1.0.0/StringUtil">
                <realisation xsi:type="Assignment">
                  <result xsi:type="IntegerVariable" name="g"/>
                  <term xsi:type="s:LengthOfString">
                    <s:string xsi:type="s:SubString">
                      <s:string xsi:type="StringLiteral" value=""/>
                      <s:index xsi:type="s:IndexOf">
                        <s:string xsi:type="StringLiteral" value=")" + std::string(1'200'000, 'a') + R"("/>
                        <s:pattern xsi:type="StringLiteral" value="b"/>
                      </s:index>
                      <s:count xsi:type="IntegerLiteral" value="0"/>
                    </s:string>
                  </term>
                </realisation>
              </action>)";
}

// Each level evaluates the one within it twice, since it stands between two others.
std::string doublingComparison(const std::string& id, int levels) {
    const std::string truth = "<term xsi:type=\"BooleanLiteral\" value=\"true\"/>";
    std::string term = truth;
    for (int level = 0; level < levels; ++level) term = "<term xsi:type=\"IsEqual\">" + truth + term + truth + "</term>";
    return "<action id=\"" + id +
           "\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"IntegerVariable\" name=\"g\"/><term xsi:type=\"ToInteger\">" +
           term + "</term></realisation></action>";
}

// A cancel that comes while the flow stands at the node ends the node and the run.
void expectCancelled(const std::string& node) {
    const auto host = std::make_shared<StopHost>();
    const auto sequencer = load(document(procedure("main", node), integer("variable", "g", 0)));
    sequencer->SetHost(host);
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    // The node at which the flow stood still runs.
    EXPECT_EQ(outcomeOfControl(*sequencer, "cancel"), R"("")");
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
}

}  // namespace

TEST(CancelMatch, EndsTheMatchAndTheRun) { expectCancelled(endlessMatch("a1")); }

TEST(CancelMatch, WithoutACancelTheMatchIsRefused) {
    const auto sequencer = load(document(procedure("main", endlessMatch("a1")), integer("variable", "g", 0)));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "exception StringUtilException: Match: it takes too many steps");
}

TEST(CancelSearch, EndsTheSearchAndTheRun) { expectCancelled(longSearch("a1")); }

TEST(CancelSearch, WithoutACancelTheTermAroundItIsReached) {
    const auto sequencer = load(document(procedure("main", longSearch("a1")), integer("variable", "g", 0)));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"),
              "exception OutOfBoundsException: SubString index -1 is not with the string. String length = 0");
}

TEST(CancelComparison, EndsATermThatWouldTakeForEver) { expectCancelled(doublingComparison("a1", 60)); }

TEST(CancelComparison, WithoutACancelTheTermEnds) {
    const auto sequencer = load(document(procedure("main", doublingComparison("a1", 4), integer("outParam", "g", 0))));
    const auto host = std::make_shared<StopHost>();
    sequencer->SetHost(host);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"g":1})");
}
