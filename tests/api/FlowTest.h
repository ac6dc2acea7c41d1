// What the tests of several flows share: a session whose host keeps the stops, and questions about its flows.
#pragma once

#include "ReactingHost.h"
#include "Session.h"

#include <otx/value/COtxValue.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace api {

inline const std::string ok = R"("")";
inline const std::string cancelled = "failure cancelled: ";
inline const std::string noFirstFlow = "failure Invalid thread id: 0";

// {"flowId":N}
std::string flow(int flowId);

class FlowTest : public testing::Test {
protected:
    // Loads a document with the global Integers g, x and y, all 0.
    void begin(const std::string& procedures, const std::string& moreGlobals = "");

    std::string control(const std::string& command, const std::string& parameters = "{}");
    void setBreakpoints(const std::vector<std::string>& ids);
    // Begins a run of main that runs freely.
    void start() { session->start(); }
    std::string outcome() { return session->outcome(); }

    // The next stops, by the node: the flow that stands there. No two may stand at one node.
    std::map<std::string, int> stops(std::size_t count);
    // The next stop is that of this node; answers the flow.
    int stopAt(const std::string& node);

    // The flows of the status, in its order.
    std::vector<int> flows();
    // The only flow but 0 and those.
    int otherFlow(const std::vector<int>& known);
    bool isStopped(int flowId);
    // The status of one flow as JSON.
    std::string flowText(int flowId);
    void waitUntilGone(int flowId);

    long long global(const std::string& name);
    void waitForGlobal(const std::string& name, long long value);
    // Waits until a variable that a loop counts up has gone on.
    void waitForProgress(const std::string& name);

    std::shared_ptr<ReactingHost> host = std::make_shared<ReactingHost>();
    std::optional<Session> session;
};

}  // namespace api
