// What all handles of the recording host have: a label, and the recorder of their calls.
#pragma once

#include "Argument.h"
#include "CallRecorder.h"

#include <otx/value/COtxValueBehaviour.h>

#include <string>
#include <utility>

namespace documents {

// The label is the handle's text. Handles are shared by values; each answer of the host is a handle of its own.
class Handle : public COtxValueBehaviour {
public:
    COtxValue ToString() override { return COtxString(label_); }

    const std::string& label() const { return label_; }
    CallRecorder& recorder() const { return recorder_; }

    // Records the call, and throws what it is told to.
    template <typename... Arguments>
    void call(const char* operation, const Arguments&... arguments) const {
        recorder_.call(label_, operation, {asArgument(arguments)...});
    }

protected:
    Handle(CallRecorder& recorder, std::string label, OTX::ValueType type)
        : COtxValueBehaviour(type), recorder_(recorder), label_(std::move(label)) {}

private:
    CallRecorder& recorder_;
    const std::string label_;
};

}  // namespace documents
