// Cancelling a run while it matches a regular expression.
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

}  // namespace

TEST(CancelMatch, EndsTheMatchAndTheRun) {
    const auto host = std::make_shared<StopHost>();
    const auto sequencer = load(document(procedure("main", endlessMatch("a1")), integer("variable", "g", 0)));
    sequencer->SetHost(host);
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    // The node at which the flow stood still runs.
    EXPECT_EQ(outcomeOfControl(*sequencer, "cancel"), R"("")");
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
}

TEST(CancelMatch, WithoutACancelTheMatchIsRefused) {
    const auto sequencer = load(document(procedure("main", endlessMatch("a1")), integer("variable", "g", 0)));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "exception StringUtilException: Match: it takes too many steps");
}
