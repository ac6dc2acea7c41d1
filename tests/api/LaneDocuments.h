// Texts of nodes and declarations for documents with lanes and events.
#pragma once

#include <string>
#include <vector>

namespace api {

using Texts = std::vector<std::string>;

std::string parallel(const std::string& id, const Texts& lanes);
std::string mutexGroup(const std::string& id, const std::string& flow);
std::string terminateLanes(const std::string& id);
std::string returnNode(const std::string& id);
std::string group(const std::string& id, const std::string& flow);
std::string doNothing(const std::string& id);

// An action that fails with OTXRuntimeException: it reaches for an item without behaviour.
std::string fail(const std::string& id);
// One that appends an Integer to a list.
std::string append(const std::string& id, const std::string& list);
std::string copyInteger(const std::string& id, const std::string& target, const std::string& source);

// A loop of so many passes.
std::string loopOf(const std::string& id, const std::string& counter, int passes, const std::string& body);

// A handler that takes exceptions of one class.
std::string handlerOf(const std::string& exceptionClass, const std::string& id, const std::string& tryFlow,
                      const std::string& catchFlow, const std::string& finallyFlow = "");

// A declaration of another type: `element` is variable, inParam, outParam and so on.
std::string declared(const std::string& element, const std::string& name, const std::string& dataType);
std::string listOf(const std::string& element, const std::string& name);
// Of event sources and of events.
std::string source(const std::string& element, const std::string& name);

// The terms that make event sources.
std::string timer(long long milliseconds);
std::string monitor(const std::string& variable);
// Actions that assign such a term to a variable.
std::string makeTimer(const std::string& id, const std::string& target, long long milliseconds);
std::string makeMonitor(const std::string& id, const std::string& target, const std::string& variable);

// Appends such a source to a list.
std::string appendMonitor(const std::string& id, const std::string& list, const std::string& variable);

// Waits for the sources in these variables, and stores the event in `event` if that isn't empty.
std::string waitFor(const std::string& id, const Texts& sources, const std::string& event = "");
// Waits for a source that the action makes itself.
std::string waitForTerm(const std::string& id, const std::string& term);

// Assigns what a test of the event in a variable answers: IsTimerExpiredEvent, IsMonitorChangeEvent. The second one takes a
// variable too.
std::string testEvent(const std::string& id, const std::string& target, const std::string& test, const std::string& event,
                      const std::string& variable = "");
std::string newValue(const std::string& id, const std::string& target, const std::string& event);

}  // namespace api
