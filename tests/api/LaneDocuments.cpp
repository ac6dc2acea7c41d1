// Texts of nodes and declarations for documents with lanes and events.
#include "LaneDocuments.h"

namespace api {

namespace {

constexpr const char* eventModule = " xmlns:e=\"http://iso.org/OTX/1.0.0/Event\"";

std::string action(const std::string& id, const std::string& realisationType, const std::string& content) {
    return "<action id=\"" + id + "\"><realisation" + eventModule + " xsi:type=\"" + realisationType + "\">" + content +
           "</realisation></action>";
}

std::string assign(const std::string& id, const std::string& variableType, const std::string& target, const std::string& term) {
    return action(id, "Assignment", "<result xsi:type=\"" + variableType + "\" name=\"" + target + "\"/>" + term);
}

// As it stands in the place `element`.
std::string in(const std::string& element, const std::string& term) {
    return '<' + element + " xsi:type=\"" + term + "</" + element + '>';
}

}  // namespace

std::string parallel(const std::string& id, const Texts& lanes) {
    std::string text = "<parallel id=\"" + id + "\"><realisation>";
    for (const std::string& lane : lanes) text += "<lane>" + lane + "</lane>";
    return text + "</realisation></parallel>";
}

std::string mutexGroup(const std::string& id, const std::string& flow) {
    return "<mutex id=\"" + id + "\"><realisation>" + flow + "</realisation></mutex>";
}

std::string terminateLanes(const std::string& id) { return "<terminateLanes id=\"" + id + "\"/>"; }

std::string returnNode(const std::string& id) { return "<return id=\"" + id + "\"/>"; }

std::string group(const std::string& id, const std::string& flow) {
    return "<group id=\"" + id + "\"><realisation>" + flow + "</realisation></group>";
}

std::string doNothing(const std::string& id) { return "<action id=\"" + id + "\"/>"; }

std::string fail(const std::string& id) {
    return assign(id, "IntegerVariable", "g", in("term", "Negate\"><numeral xsi:type=\"IntegerLiteral\" value=\"1\"/>"));
}

std::string append(const std::string& id, const std::string& list) {
    return action(id, "ListAppendItems", "<list name=\"" + list + "\"/><item xsi:type=\"IntegerLiteral\" value=\"7\"/>");
}

std::string copyInteger(const std::string& id, const std::string& target, const std::string& source) {
    return assign(id, "IntegerVariable", target, in("term", "IntegerValue\" valueOf=\"" + source + "\">"));
}

std::string loopOf(const std::string& id, const std::string& counter, int passes, const std::string& body) {
    return "<loop id=\"" + id + "\"><realisation><configuration id=\"" + id +
           "c\"><realisation xsi:type=\"ForLoop\"><counter "
           "name=\"" +
           counter + "\"/><start xsi:type=\"IntegerLiteral\" value=\"1\"/><end xsi:type=\"IntegerLiteral\" value=\"" +
           std::to_string(passes) + "\"/></realisation></configuration><flow>" + body + "</flow></realisation></loop>";
}

std::string handlerOf(const std::string& exceptionClass, const std::string& id, const std::string& tryFlow,
                      const std::string& catchFlow, const std::string& finallyFlow) {
    return "<handler id=\"" + id + "\"><realisation><try>" + tryFlow + "</try><catch><exception id=\"" + id +
           "e\"><realisation><type xsi:type=\"" + exceptionClass + "\"/></realisation></exception><flow>" + catchFlow +
           "</flow></catch>" + (finallyFlow.empty() ? "" : "<finally>" + finallyFlow + "</finally>") +
           "</realisation></handler>";
}

std::string declared(const std::string& element, const std::string& name, const std::string& dataType) {
    return '<' + element + " id=\"d-" + name + "\" name=\"" + name + "\"><realisation" + eventModule +
           "><dataType xsi:type=\"" + dataType + "</dataType></realisation></" + element + '>';
}

std::string listOf(const std::string& element, const std::string& name) {
    return declared(element, name, "List\"><itemType xsi:type=\"Integer\"/>");
}

std::string source(const std::string& element, const std::string& name) { return declared(element, name, "e:EventSource\">"); }

std::string timer(long long milliseconds) {
    return "e:TimerExpiredEventSource\"><e:timeout xsi:type=\"IntegerLiteral\" value=\"" + std::to_string(milliseconds) +
           "\"/>";
}

std::string monitor(const std::string& variable) {
    return "e:MonitorChangeEventSource\"><e:variable xsi:type=\"IntegerVariable\" name=\"" + variable + "\"/>";
}

std::string makeTimer(const std::string& id, const std::string& target, long long milliseconds) {
    return assign(id, "e:EventSourceVariable", target, in("term", timer(milliseconds)));
}

std::string makeMonitor(const std::string& id, const std::string& target, const std::string& variable) {
    return assign(id, "e:EventSourceVariable", target, in("term", monitor(variable)));
}

std::string appendMonitor(const std::string& id, const std::string& list, const std::string& variable) {
    return action(id, "ListAppendItems", "<list name=\"" + list + "\"/>" + in("item", monitor(variable)));
}

std::string waitFor(const std::string& id, const Texts& sources, const std::string& event) {
    std::string content;
    for (const std::string& name : sources) content += "<e:source xsi:type=\"e:EventSourceValue\" valueOf=\"" + name + "\"/>";
    if (!event.empty()) content += "<e:event name=\"" + event + "\"/>";
    return action(id, "e:WaitForEvent", content);
}

std::string waitForTerm(const std::string& id, const std::string& term) {
    return action(id, "e:WaitForEvent", in("e:source", term));
}

std::string testEvent(const std::string& id, const std::string& target, const std::string& test, const std::string& event,
                      const std::string& variable) {
    const std::string of = variable.empty() ? "" : "<e:variable xsi:type=\"IntegerVariable\" name=\"" + variable + "\"/>";
    return assign(id, "BooleanVariable", target,
                  in("term", "e:" + test + "\"><e:event xsi:type=\"e:EventValue\" valueOf=\"" + event + "\"/>" + of));
}

std::string newValue(const std::string& id, const std::string& target, const std::string& event) {
    return assign(id, "IntegerVariable", target,
                  in("term", "e:GetNewValue\"><e:event xsi:type=\"e:EventValue\" valueOf=\"" + event + "\"/>"));
}

}  // namespace api
