// What the debugger reads and writes: its lines, the list of nodes, indented JSON.
#include "program/IndentedJson.h"
#include "program/debug/CommandText.h"
#include "program/debug/NodeIndex.h"
#include "program/debug/NodeList.h"

#include <gtest/gtest.h>

namespace {

using namespace velkotx::host;
using velkotx::NodeInfo;
using Ids = std::vector<std::string>;

NodeInfo node(const char* id, const char* name, const char* type, std::size_t depth, const char* part = "") {
    NodeInfo info;
    info.id = id;
    info.name = name;
    info.type = type;
    info.depth = depth;
    info.part = part;
    return info;
}

TEST(CommandText, TakesTheFirstWord) {
    const CommandText command = takeWord("  inject\tUserException   two words \r");
    EXPECT_EQ(command.word, "inject");
    EXPECT_EQ(command.rest, "UserException   two words");
}

TEST(CommandText, AWordMayStandAlone) {
    EXPECT_EQ(takeWord("step").word, "step");
    EXPECT_EQ(takeWord("step").rest, "");
}

TEST(CommandText, BlanksAndCommentsAreNothing) {
    for (const char* line : {"", "  \t", "# run", "   #run"})
        EXPECT_EQ(takeWord(line).word, "") << line;
}

TEST(CommandText, ReadsNumbers) {
    EXPECT_EQ(readNumber("", "flow"), std::nullopt);
    EXPECT_EQ(readNumber("12", "flow"), 12);
}

TEST(CommandText, RefusesWhatIsNoNumber) {
    for (const char* text : {"x", "1x", "-1", "1 2", "99999999999999999999"}) {
        try {
            readNumber(text, "flow");
            ADD_FAILURE() << text;
        } catch (const CommandError& error) {
            EXPECT_EQ(error.what(), "'" + std::string(text) + "' is no flow");
        }
    }
}

TEST(NodeList, ShowsATreeWithPartsAndMarks) {
    std::vector<NodeInfo> nodes{node("b", "Choice", "Branch", 0), node("x", "", "Assignment", 1, "if"),
                                node("y", "", "Assignment", 1, "if"), node("l", "", "WhileLoop", 1, "else"),
                                node("z", "", "Break", 2), node("e", "", "Return", 0)};
    nodes.back().disabled = true;
    EXPECT_EQ(listNodes(nodes, "y", {"b", "y"}),
              " * b Branch 'Choice'\n"
              "     [if]\n"
              "     x Assignment\n"
              ">*   y Assignment\n"
              "     [else]\n"
              "     l WhileLoop\n"
              "       z Break\n"
              "   e Return (disabled)\n");
}

TEST(NodeList, APartThatComesAgainIsShownAgain) {
    const std::vector<NodeInfo> nodes{node("b", "", "Branch", 0), node("x", "", "Assignment", 1, "if"),
                                      node("c", "", "Branch", 0), node("y", "", "Assignment", 1, "if")};
    EXPECT_EQ(listNodes(nodes, "", {}),
              "   b Branch\n     [if]\n     x Assignment\n   c Branch\n     [if]\n     y Assignment\n");
}

TEST(NodeIndex, FindsByIdAheadOfName) {
    const NodeIndex index({{"main", {node("a", "b", "Group", 0), node("b", "", "Group", 0)}}});
    EXPECT_EQ(index.idsOf("a"), Ids{"a"});
    EXPECT_EQ(index.idsOf("b"), Ids{"b"});
    EXPECT_EQ(index.idsOf("c"), Ids());
}

TEST(NodeIndex, ANameMayBeThatOfSeveralNodes) {
    const NodeIndex index({{"main", {node("a", "Set", "Group", 0)}}, {"other", {node("b", "Set", "Group", 0)}}});
    EXPECT_EQ(index.idsOf("Set"), (Ids{"a", "b"}));
}

TEST(NodeIndex, TheInnermostFrameDecidesWhoseNodeItIs) {
    const NodeIndex index({{"main", {node("a", "", "Group", 0)}}, {"other", {node("a", "", "Branch", 0)}}});
    EXPECT_EQ(index.find("a", {"main", "other"})->procedure, "other");
    EXPECT_EQ(index.find("a", {"other", "main"})->procedure, "main");
    EXPECT_EQ(index.find("a", {"elsewhere"})->procedure, "main");
    EXPECT_EQ(index.find("b"), nullptr);
}

TEST(NodeIndex, KnowsTheNodesOfAProcedure) {
    const NodeIndex index({{"main", {node("a", "", "Group", 0)}}});
    EXPECT_EQ(index.nodesOf("main")->size(), 1U);
    EXPECT_EQ(index.nodesOf("other"), nullptr);
}

TEST(NodeIndex, TheTextOfANodeIsOneLine) {
    EXPECT_EQ(nodeText(node("a", "", "Group", 0)), "a Group");
    EXPECT_EQ(nodeText(node("a", "two\nlines", "Group", 0)), "a Group 'two\\nlines'");
}

TEST(IndentedJson, LeavesPlainValuesAlone) {
    for (const char* json : {"1", "null", "\"a,b:{}\"", "[]", "{}", "\"\\\"[\"", "\"\\\\\""})
        EXPECT_EQ(indentedJson(json), json);
}

TEST(IndentedJson, GivesEachMemberALine) {
    EXPECT_EQ(indentedJson(R"({"a":[1,"x,y"],"b":{"c":{}}})"),
              "{\n  \"a\": [\n    1,\n    \"x,y\"\n  ],\n  \"b\": {\n    \"c\": {}\n  }\n}");
}

}  // namespace
