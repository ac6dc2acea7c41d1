// The table of the bombs.
#include "Bomb.h"

#include "Documents.h"
#include "LaneDocuments.h"
#include "ScreenDocuments.h"

#include <sstream>

namespace bombs {

namespace {

using namespace api;
using namespace std::string_literals;

const std::string xmlRefused = "VelkOTX XML Parsing Exception: ";
const std::string compiledRefused = "VelkOTX CDR Parsing Exception: ";
const std::string tooDeepForStack = "document nested too deep for the stack of this thread";
const std::string finishedTrue = "finished {\"o\":true}";
const std::string finished = "finished {\"o\":7}";
const std::string stackExhausted = "InternalError: Stack exhausted";
const std::string tooDeepValue = "exception OutOfBoundsException: Value is nested too deeply or contains itself";
const std::string typeMismatch = "exception TypeMismatchException: ";

std::string repeated(const std::string& text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

std::string nested(const std::string& open, const std::string& inside, const std::string& close, std::size_t depth) {
    return repeated(open, depth) + inside + repeated(close, depth);
}

std::string withFlow(const std::string& flow) {
    return document(procedure("main", flow, integer("outParam", "o", 7)));
}

std::string groups(std::size_t depth) {
    return withFlow(nested("<group id=\"g\"><realisation>", "", "</realisation></group>", depth));
}

std::string negations(std::size_t depth) {
    return withFlow("<action id=\"a\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"BooleanVariable\" name=\"o\"/>" +
                    nested("<term xsi:type=\"LogicNot\">", "<term xsi:type=\"BooleanLiteral\" value=\"true\"/>", "</term>", depth) +
                    "</realisation></action>");
}

std::string attributes(std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) all += " x" + std::to_string(i) + "=\"\"";
    return withFlow("<action id=\"a\"" + all + "/>");
}

std::string parallels(std::size_t depth) {
    std::string flow;
    for (std::size_t level = 0; level < depth; ++level) flow = parallel("n", {flow, ""});
    return withFlow(flow);
}

std::string withDoctype(const std::string& declarations, const std::string& use) {
    std::string text = withFlow(use);
    text.insert(text.find("<otx"), "<!DOCTYPE otx " + declarations + ">\n");
    return text;
}

std::string laughs() {
    std::string entities = "<!ENTITY e0 \"lol\">";
    for (int level = 1; level < 10; ++level)
        entities += "<!ENTITY e" + std::to_string(level) + " \"" + repeated("&e" + std::to_string(level - 1) + ";", 10) + "\">";
    return withDoctype("[" + entities + "]", "<action id=\"a\"><specification>&e9;</specification></action>");
}

std::string compiled(const std::string& text) {
    std::ostringstream out;
    load(text)->Save(out);
    return std::move(out).str();
}

// Replaces a list by one that holds it so many times.
std::string wrapped(const std::string& id, const std::string& list, int times) {
    return assignTerm(id, "ListVariable", list,
                      "ListCreate\"><itemType xsi:type=\"Integer\"/><items>" +
                          repeated("<item xsi:type=\"ListValue\" valueOf=\"" + list + "\"/>", times) + "</items>");
}

// Two lists of two lists of two lists, of which a term is asked.
std::string sharedLists(int depth, const std::string& result, const std::string& term) {
    return document(procedure("main",
                              loopOf("n", "i", depth, wrapped("l", "l", 2) + wrapped("m", "m", 2)) +
                                  assignTerm("b", result, "o", term),
                              text("outParam", "o", "")),
                    listOf("variable", "l") + listOf("variable", "m") + integer("variable", "i", 0));
}

// A list in a list in a list, as a text.
std::string deepList(int depth) {
    return document(procedure("main",
                              loopOf("n", "i", depth, wrapped("l", "l", 1)) +
                                  assignTerm("b", "StringVariable", "o", "ToString\"><term xsi:type=\"ListValue\" valueOf=\"l\"/>"),
                              text("outParam", "o", "")),
                    listOf("variable", "l") + integer("variable", "i", 0));
}

std::string callsItself(const std::string& flow) { return document(procedure("main", flow, integer("outParam", "o", 7))); }

void addLoading(std::vector<Bomb>& all) {
    const auto add = [&](const std::string& name, std::function<std::string()> make, Outcomes outcomes) {
        all.push_back({name, std::move(make), outcomeOfDocument, std::move(outcomes)});
    };
    add("xml-unknown-nested", [] { return withFlow(nested("<u>", "", "</u>", 1000000)); }, xmlRefused);
    add("xml-never-closed", [] { return withFlow(repeated("<u>", 1000000)); }, xmlRefused);
    add("xml-groups", [] { return groups(100000); }, xmlRefused);
    const std::string xmlTooDeep = xmlRefused + tooDeepForStack;
    add("xml-groups-below-limit", [] { return groups(4900); }, {{xmlTooDeep, finished}, {xmlTooDeep}, {xmlTooDeep}});
    add("xml-terms", [] { return negations(100000); }, xmlRefused);
    add("xml-terms-below-limit", [] { return negations(9900); }, {{xmlTooDeep, finishedTrue}, {xmlTooDeep}, {xmlTooDeep}});
    add("xml-attributes", [] { return attributes(100000); }, xmlRefused);
    add("xml-attribute-megabytes", [] { return withFlow("<action id=\"" + std::string(8000000, 'a') + "\"/>"); },
        finished);
    add("xml-digits", [] {
        return withFlow("<action id=\"a\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"IntegerVariable\" name=\"o\"/>"
                        "<term xsi:type=\"IntegerLiteral\" value=\"" + std::string(1000000, '9') + "\"/></realisation></action>");
    }, xmlRefused + "invalid value '999");
    add("xml-entities", laughs, xmlRefused);
    add("xml-entity-unknown", [] { return withFlow("<action id=\"&a;\"/>"); }, xmlRefused);
    add("xml-character-reference", [] { return withFlow("<action id=\"&#x" + std::string(1000000, 'F') + ";\"/>"); }, xmlRefused);
    add("xml-doctype", [] { return withDoctype("", ""); }, xmlRefused);
    add("xml-doctype-external", [] { return withDoctype("SYSTEM \"file:///dev/zero\"", ""); }, xmlRefused);
    add("xml-doctype-attributes", [] { return withDoctype("[<!ATTLIST otx x CDATA \"y\">]", ""); }, xmlRefused);
    add("compiled-zeros", [] { return std::string(10000000, '\0'); }, compiledRefused);
    add("compiled-ones", [] { return std::string(10000000, '\xFF'); }, compiledRefused);
    const std::string compiledTooDeep = compiledRefused + tooDeepForStack;
    add("compiled-groups", [] { return compiled(groups(1000)); },
        {{finished}, {finished, compiledTooDeep}, {compiledTooDeep}});
    add("compiled-terms", [] { return compiled(negations(2000)); },
        {{finishedTrue}, {finishedTrue, compiledTooDeep}, {compiledTooDeep}});
    all.push_back({"compiled-words", [] { return compiled(withFlow(increment("a", "o"))); }, outcomeOfWords, "held"s});
}

void addRunning(std::vector<Bomb>& all) {
    const auto add = [&](const std::string& name, std::function<std::string()> make, Outcomes outcomes) {
        all.push_back({name, std::move(make), outcomeOfDocument, std::move(outcomes)});
    };
    add("run-recursion", [] { return callsItself(call("a", "main")); }, stackExhausted);
    add("run-recursion-guarded", [] {
        return callsItself(handler("h", call("a", "main"), call("b", "main"), call("c", "main")));
    }, stackExhausted);
    add("run-recursion-in-loops", [] { return callsItself(forEver("l", group("g", call("a", "main")))); }, stackExhausted);
    add("run-recursion-in-a-lane", [] {
        return document(procedure("main", parallel("n", {call("a", "deep")}) + doNothing("c")) +
                        procedure("deep", call("b", "deep")));
    }, "cancelled: "s);
    add("run-parallels", [] { return parallels(100); }, {{finished}, {finished}, {finished, xmlRefused + tooDeepForStack}});
    add("run-parallel-recursion", [] { return callsItself(parallel("n", {call("a", "main"), ""}) + doNothing("b")); },
        // The shortage comes inside of a lane: main's own lanes begin together, while there are threads.
        "cancelled: "s);
    all.back().takesAllThreads = true;
    const std::string tooManyTimes = "OutOfBoundsException: Value holds others too many times";
    add("run-shared-lists-compared", [] {
        return sharedLists(60, "BooleanVariable",
                           "IsEqual\"><term xsi:type=\"ListValue\" valueOf=\"l\"/><term xsi:type=\"ListValue\" valueOf=\"m\"/>");
    }, tooManyTimes);
    add("run-shared-lists-as-text", [] {
        return sharedLists(60, "StringVariable", "ToString\"><term xsi:type=\"ListValue\" valueOf=\"l\"/>");
    }, tooManyTimes);
    add("run-deep-list", [] { return deepList(200000); }, "OutOfBoundsException: Value is nested too deeply or contains itself"s);
}

void addValues(std::vector<Bomb>& all) {
    const auto add = [&](const std::string& name, std::function<std::string()> make, Outcomes outcomes) {
        all.push_back({name, std::move(make), outcomeOfJson, std::move(outcomes)});
    };
    add("json-lists", [] { return nested("[", "", "]", 5000000); }, typeMismatch);
    add("json-never-closed", [] { return std::string(10000000, '['); }, typeMismatch);
    add("json-maps", [] { return nested("{\"a\":", "1", "}", 1000000); }, typeMismatch);
    add("json-typed", [] { return nested("{\"Map\":[[1,", "1", "]]}", 1000000); }, typeMismatch);
    add("json-lists-below-limit", [] { return nested("[", "", "]", 9999); }, {{"read"}, {tooDeepValue}, {tooDeepValue}});
    add("json-maps-below-limit", [] { return nested("{\"a\":", "1", "}", 9999); }, {{"read"}, {tooDeepValue}, {tooDeepValue}});
    add("json-digits", [] { return std::string(10000000, '9'); }, typeMismatch);
    add("json-exponent", [] { return "1e" + std::string(1000000, '9'); }, typeMismatch);
    add("json-text", [] { return '"' + std::string(10000000, 'a') + '"'; }, "read"s);
}

void addPatterns(std::vector<Bomb>& all) {
    const std::string matches = "answer TRUE";
    const std::string differs = "answer FALSE";
    const std::string refused = "exception StringUtilException: Match: ";
    const auto add = [&](const std::string& name, std::function<std::string()> make, Outcomes outcomes) {
        all.push_back({name, std::move(make), outcomeOfMatch, std::move(outcomes)});
    };
    add("match-groups", [] { return nested("(", "a", ")", 100000) + "\na"; }, refused + "groups are nested too deeply");
    add("match-groups-below-limit", [] { return nested("(?:", "a", ")*", 200) + "\na"; }, matches);
    add("match-nested-repetitions", [] { return "(a+)+$\n" + std::string(5000, 'a') + "!"; }, differs);
    add("match-nested-alternatives", [] { return "(a|a)*b\n" + std::string(5000, 'a'); }, differs);
    add("match-long-text", [] { return "(.|x)*y\n" + std::string(1000000, 'x'); }, differs);
    add("match-many-stars", [] { return repeated(".*", 50) + "y\n" + std::string(2000, 'x'); }, differs);
    add("match-back-references", [] { return "(a*)*\\1b\n" + std::string(30, 'a'); }, differs);
    add("match-counts", [] { return "((a{1,1000}){1,1000}){1,1000}\n" + std::string(100, 'a'); },
        refused + "regular expression is too large");
    add("match-long-pattern", [] { return repeated("(a|b)?", 100000) + "\nab"; }, refused + "too many capturing groups");
}

}  // namespace

std::vector<Bomb> allBombs() {
    std::vector<Bomb> all;
    addLoading(all);
    addRunning(all);
    addValues(all);
    addPatterns(all);
    return all;
}

}  // namespace bombs
