// Texts of nodes and declarations for documents with service providers.
#include "ProviderDocuments.h"

namespace api {

namespace {

constexpr const char* modules = " xmlns:s=\"http://iso.org/OTX/1.0.0/ExternalServiceProvider\""
                                " xmlns:e=\"http://iso.org/OTX/1.0.0/Event\"";

std::string action(const std::string& id, const std::string& type, const std::string& attributes,
                   const std::string& content) {
    return "<action id=\"" + id + "\"><realisation" + modules + " xsi:type=\"" + type + '"' + attributes + '>' + content +
           "</realisation></action>";
}

std::string variableOf(const std::string& name, const std::string& type) {
    return "<variable id=\"d-" + name + "\" name=\"" + name + "\"><realisation" + modules + "><dataType xsi:type=\"" + type +
           "/></realisation></variable>";
}

std::string provider(const std::string& variable) {
    return "<s:serviceProvider xsi:type=\"s:ServiceProviderValue\" valueOf=\"" + variable + "\"/>";
}

std::string service(const std::string& variable) {
    return "<s:serviceHandle xsi:type=\"s:ServiceValue\" valueOf=\"" + variable + "\"/>";
}

std::string event(const std::string& variable) {
    return "<s:event xsi:type=\"e:EventValue\" valueOf=\"" + variable + "\"/>";
}

std::string targetArgument(const std::string& element, const std::string& parameter, const std::string& variable) {
    return "<s:" + element + " parameter=\"" + parameter + "\"><s:target xsi:type=\"IntegerVariable\" name=\"" + variable +
           "\"/></s:" + element + '>';
}

std::string argumentsOf(const std::string& arguments) {
    return arguments.empty() ? "" : "<s:arguments>" + arguments + "</s:arguments>";
}

// These attributes have to be there; what they say isn't looked at.
std::string assign(const std::string& id, const std::string& target, const std::string& term, const std::string& content) {
    const bool isTyped = term == "GetProperty" || term == "IsServiceProviderEvent" || term == "ServiceProviderEventSource";
    const std::string attributes = std::string(isTyped ? " providerType=\"Any\"" : "") +
                                   (term == "GetProperty" ? " property=\"any\"" : "");
    return action(id, "Assignment", "",
                  "<result xsi:type=\"BooleanVariable\" name=\"" + target + "\"/><term xsi:type=\"s:" + term + '"' +
                      attributes + '>' + content + "</term>");
}

}  // namespace

std::string providerVariable(const std::string& name) { return variableOf(name, "s:ServiceProvider\" providerType=\"Any\""); }

std::string serviceVariable(const std::string& name) { return variableOf(name, "s:Service\""); }

// The caller closes the quotes, so that an attribute has to be left open.
std::string providerException(const std::string& name) {
    return "s:" + name + "\" xmlns:s=\"http://iso.org/OTX/1.0.0/ExternalServiceProvider";
}

std::string inInteger(const std::string& parameter, int value) {
    return "<s:inArgument parameter=\"" + parameter + "\"><s:term xsi:type=\"IntegerLiteral\" value=\"" +
           std::to_string(value) + "\"/></s:inArgument>";
}

std::string inVariable(const std::string& parameter, const std::string& variable) {
    return "<s:inArgument parameter=\"" + parameter + "\"><s:term xsi:type=\"IntegerValue\" valueOf=\"" + variable +
           "\"/></s:inArgument>";
}

std::string inoutVariable(const std::string& parameter, const std::string& variable) {
    return targetArgument("inoutArgument", parameter, variable);
}

std::string outVariable(const std::string& parameter, const std::string& variable) {
    return targetArgument("outArgument", parameter, variable);
}

std::string createProvider(const std::string& id, const std::string& variable, const std::string& providerType,
                           const std::string& constructor, const std::string& arguments) {
    return action(id, "s:CreateProvider", " providerType=\"" + providerType + '"' + constructor,
                  "<s:serviceProvider name=\"" + variable + "\"/>" + argumentsOf(arguments));
}

std::string executeService(const std::string& id, const std::string& variable, const std::string& serviceName,
                           const std::string& attributes, const std::string& arguments, const std::string& handle) {
    return action(id, "s:ExecuteService", " providerType=\"Other\" service=\"" + serviceName + '"' + attributes,
                  provider(variable) + argumentsOf(arguments) +
                      (handle.empty() ? "" : "<s:serviceHandle name=\"" + handle + "\"/>"));
}

std::string terminateService(const std::string& id, const std::string& handle, const std::string& result) {
    return action(id, "s:TerminateService", "",
                  service(handle) + (result.empty() ? "" : "<s:isTerminated name=\"" + result + "\"/>"));
}

std::string disposeProvider(const std::string& id, const std::string& variable) {
    return action(id, "s:DisposeProvider", "", provider(variable));
}

std::string listOfProviders(const std::string& name) {
    return "<variable id=\"d-" + name + "\" name=\"" + name + "\"><realisation" + modules +
           "><dataType xsi:type=\"List\"><itemType xsi:type=\"s:ServiceProvider\" providerType=\"Any\"/></dataType>"
           "</realisation></variable>";
}

std::string appendProvider(const std::string& id, const std::string& list, const std::string& variable) {
    return action(id, "ListAppendItems", "",
                  "<list name=\"" + list + "\"/><item xsi:type=\"s:ServiceProviderValue\" valueOf=\"" + variable + "\"/>");
}

std::string clearList(const std::string& id, const std::string& list) {
    return action(id, "ListClear", "", "<list name=\"" + list + "\"/>");
}

std::string setProperty(const std::string& id, const std::string& variable) {
    return action(id, "s:SetProperty", " providerType=\"Any\" property=\"any\"",
                  provider(variable) + "<s:value xsi:type=\"IntegerLiteral\" value=\"1\"/>");
}

std::string fetchEventValues(const std::string& id, const std::string& eventVariable) {
    return action(id, "s:FetchServiceProviderEventValues", " providerType=\"Any\" eventName=\"any\"", event(eventVariable));
}

std::string assignOfProvider(const std::string& id, const std::string& target, const std::string& term,
                             const std::string& variable) {
    return assign(id, target, term, provider(variable));
}

std::string assignOfService(const std::string& id, const std::string& target, const std::string& term,
                            const std::string& handle) {
    return assign(id, target, term, service(handle));
}

std::string assignOfEvent(const std::string& id, const std::string& target, const std::string& term,
                          const std::string& eventVariable) {
    return assign(id, target, term, event(eventVariable));
}

std::string waitForService(const std::string& id, const std::string& handle, const std::string& eventVariable) {
    return action(id, "e:WaitForEvent", "",
                  "<e:source xsi:type=\"s:ServiceExecutionFinishedEventSource\">" + service(handle) + "</e:source>" +
                      (eventVariable.empty() ? "" : "<e:event name=\"" + eventVariable + "\"/>"));
}

std::string waitForProvider(const std::string& id, const std::string& variable) {
    return action(id, "e:WaitForEvent", "",
                  "<e:source xsi:type=\"s:ServiceProviderEventSource\" providerType=\"Any\">" + provider(variable) +
                      "</e:source>");
}

std::string makeServiceMonitor(const std::string& id, const std::string& target, const std::string& variable) {
    return action(id, "Assignment", "",
                  "<result xsi:type=\"e:EventSourceVariable\" name=\"" + target +
                      "\"/><term xsi:type=\"e:MonitorChangeEventSource\"><e:variable xsi:type=\"s:ServiceVariable\" name=\"" +
                      variable + "\"/></term>");
}

}  // namespace api
