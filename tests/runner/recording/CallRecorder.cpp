// Records the calls of host objects, and fails those that it is told to fail.
#include "CallRecorder.h"

#include <otx/value/COtxException.h>
#include <otx/value/COtxList.h>

#include <stdexcept>

namespace documents {

namespace {

std::string jsonOf(const std::vector<COtxValue>& arguments) {
    // The list chooses the form for what it holds, so that no flag is left in values of the run.
    const COtxList list(arguments);
    list.SetOTXJSON(true);
    const std::string json = list.ToJSON().String();
    return json.substr(1, json.size() - 2);
}

}  // namespace

void fail(const HostFailure& failure) {
    switch (failure.kind) {
        case HostFailure::Kind::standard: throw std::runtime_error(failure.text);
        case HostFailure::Kind::integer: throw 7;
        case HostFailure::Kind::exception: break;
    }
    const auto kind = static_cast<OTX::Exceptions_e>(failure.exceptionKind);
    if (failure.text.empty()) throw COtxException(kind);
    throw COtxException(kind, failure.text);
}

void CallRecorder::call(const std::string& object, const std::string& operation, const std::vector<COtxValue>& arguments) {
    const std::string line = "call " + object + '.' + operation + '(' + jsonOf(arguments) + ')';
    int number = 0;
    {
        const std::lock_guard guard(callsLock_);
        number = ++calls_;
        transcript_.add(line);
    }
    if (const auto failure = failures_.find(number); failure != failures_.end()) fail(failure->second);
}

}  // namespace documents
