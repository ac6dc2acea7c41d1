// Texts of nodes and declarations for documents with service providers.
#pragma once

#include <string>
#include <vector>

namespace api {

// A variable for a provider, and one for a service.
std::string providerVariable(const std::string& name);
std::string serviceVariable(const std::string& name);

// The class of a module exception, for handlerOf.
std::string providerException(const std::string& name);

// Arguments: of an Integer, and of variables.
std::string inInteger(const std::string& parameter, int value);
std::string inVariable(const std::string& parameter, const std::string& variable);
std::string inoutVariable(const std::string& parameter, const std::string& variable);
std::string outVariable(const std::string& parameter, const std::string& variable);

// The constructor is an attribute such as ` constructor="C"`, or nothing.
std::string createProvider(const std::string& id, const std::string& variable, const std::string& providerType,
                           const std::string& constructor = "", const std::string& arguments = "");
// The attributes are further ones, such as ` executeAsync="true"`; the handle is the name of a variable, or empty.
std::string executeService(const std::string& id, const std::string& variable, const std::string& service,
                           const std::string& attributes = "", const std::string& arguments = "",
                           const std::string& handle = "");
// The result is the name of a variable, or empty.
std::string terminateService(const std::string& id, const std::string& handle, const std::string& result = "");
std::string disposeProvider(const std::string& id, const std::string& variable);
// Appends a provider to a list, and empties a list.
std::string listOfProviders(const std::string& name);
std::string appendProvider(const std::string& id, const std::string& list, const std::string& variable);
std::string clearList(const std::string& id, const std::string& list);
// Actions of the module that have no behaviour.
std::string setProperty(const std::string& id, const std::string& variable);
std::string fetchEventValues(const std::string& id, const std::string& event);

// Assigns what a term of the module gives.
std::string assignOfProvider(const std::string& id, const std::string& target, const std::string& term,
                             const std::string& variable);
std::string assignOfService(const std::string& id, const std::string& target, const std::string& term,
                            const std::string& handle);
std::string assignOfEvent(const std::string& id, const std::string& target, const std::string& term,
                          const std::string& event);
// Waits for the end of a service, and stores the event in a variable if it isn't empty.
std::string waitForService(const std::string& id, const std::string& handle, const std::string& event = "");
// Waits for the event source of a provider, which there is none of.
std::string waitForProvider(const std::string& id, const std::string& variable);
// Waits until a variable of a service is written. The source is made by makeServiceMonitor.
std::string makeServiceMonitor(const std::string& id, const std::string& target, const std::string& variable);

}  // namespace api
