// Records the calls of host objects, and fails those that it is told to fail.
#pragma once

#include "../Transcript.h"

#include <otx/value/COtxValue.h>

#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace documents {

// What one call throws instead of answering.
struct HostFailure {
    enum class Kind { exception, standard, integer };
    Kind kind = Kind::exception;
    int exceptionKind = 0;  // a number of OTX::Exceptions_e
    std::string text;
};

// The failures by the number of the call, from 1.
using HostFailures = std::map<int, HostFailure>;

// Throws what the failure says.
[[noreturn]] void fail(const HostFailure& failure);

// One for all host objects of a document; outlives them. Any thread.
class CallRecorder {
public:
    CallRecorder(Transcript& transcript, HostFailures failures) : transcript_(transcript), failures_(std::move(failures)) {}

    // Leaves the line "call OBJECT.OPERATION(ARGUMENTS)", the arguments in the OTX form of JSON. Throws what the failure of
    // that call says.
    void call(const std::string& object, const std::string& operation, const std::vector<COtxValue>& arguments);

private:
    Transcript& transcript_;
    const HostFailures failures_;
    std::mutex callsLock_;  // guards calls_, and keeps the lines in the order of their numbers
    int calls_ = 0;
};

}  // namespace documents
