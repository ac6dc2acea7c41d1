// What the tests of several flows share: a session whose host keeps the stops, and questions about its flows.
#include "FlowTest.h"

#include "Documents.h"
#include "Until.h"
#include "Values.h"

#include <otx/value/Functions.h>

#include <algorithm>
#include <stdexcept>

namespace api {

namespace {

int idOf(const COtxValue& status) { return static_cast<int>(OTX::GetParameter(status, "id", OTX::ValueType::Integer).Int()); }

std::string textOf(const COtxValue& status, const std::string& key) {
    return OTX::GetParameter(status, key, OTX::ValueType::String).String();
}

}  // namespace

std::string flow(int flowId) { return R"({"flowId":)" + std::to_string(flowId) + "}"; }

void FlowTest::begin(const std::string& procedures, const std::string& moreGlobals) {
    session.emplace(document(procedures, integer("variable", "g", 0) + integer("variable", "x", 0) +
                                             integer("variable", "y", 0) + moreGlobals),
                    host);
}

std::string FlowTest::control(const std::string& command, const std::string& parameters) {
    return session->control(command, parameters);
}

void FlowTest::setBreakpoints(const std::vector<std::string>& ids) {
    std::string list;
    for (const std::string& id : ids) list += (list.empty() ? "\"" : ",\"") + id + "\"";
    EXPECT_EQ(control("setbp", "{\"breakpoints\":[" + list + "]}"), ok);
}

std::map<std::string, int> FlowTest::stops(std::size_t count) {
    std::map<std::string, int> found;
    for (std::size_t number = 0; number < count; ++number) {
        const COtxValue stop = host->nextStop();
        if (!found.emplace(textOf(stop, "node"), idOf(stop)).second) throw std::runtime_error("two flows at one node");
    }
    return found;
}

int FlowTest::stopAt(const std::string& node) {
    const COtxValue stop = host->nextStop();
    EXPECT_EQ(textOf(stop, "node"), node);
    return idOf(stop);
}

std::vector<int> FlowTest::flows() {
    std::vector<int> ids;
    const COtxValue list = OTX::GetParameter(session->status(), "flows", OTX::ValueType::List);
    for (const COtxValue& one : list.List()) ids.push_back(idOf(one));
    return ids;
}

int FlowTest::otherFlow(const std::vector<int>& known) {
    std::vector<int> others;
    for (const int id : flows())
        if (id != 0 && std::count(known.begin(), known.end(), id) == 0) others.push_back(id);
    if (others.size() != 1) throw std::runtime_error("there isn't one other flow");
    return others.front();
}

std::string FlowTest::flowText(int flowId) {
    const COtxValue list = OTX::GetParameter(session->status(flow(flowId)), "flows", OTX::ValueType::List);
    return json(list.List().at(0));
}

bool FlowTest::isStopped(int flowId) {
    const COtxValue list = OTX::GetParameter(session->status(flow(flowId)), "flows", OTX::ValueType::List);
    return textOf(list.List().at(0), "state") == "STOPPED";
}

void FlowTest::waitUntilGone(int flowId) {
    waitUntil("end of flow " + std::to_string(flowId), [&] {
        const auto ids = flows();
        return std::count(ids.begin(), ids.end(), flowId) == 0;
    });
}

long long FlowTest::global(const std::string& name) {
    const COtxValue globals = OTX::GetParameter(session->status(), "globalvars", OTX::ValueType::Map);
    return OTX::GetParameter(globals, name, OTX::ValueType::Integer).Int();
}

void FlowTest::waitForGlobal(const std::string& name, long long value) {
    waitUntil(name, [&] { return global(name) == value; });
}

void FlowTest::waitForProgress(const std::string& name) {
    const long long before = global(name);
    waitUntil("progress of " + name, [&] { return global(name) > before + 100; });
}

}  // namespace api
