// The end of a run as one line of JSON.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

namespace documents {

std::string finishedOutcome(const COtxValue& outParameters);

// Of the exception that is being handled.
std::string unloadableOutcome();
std::string failedOutcome();

}  // namespace documents
