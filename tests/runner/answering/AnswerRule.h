// What the host answers to which message.
#pragma once

#include <otx/value/COtxValue.h>

#include <optional>
#include <string>
#include <vector>

namespace documents {

// One thing that the host does.
struct Reply {
    enum class Kind { event, control, expire };
    Kind kind = Kind::event;
    std::string command;  // of control
    COtxValue value;      // the event, or the command's parameters
};

// Constant once it is read.
struct AnswerRule {
    bool inside = false;     // from inside sendRequest, on the thread that sends the message
    std::optional<int> nth;  // that match only, counted from 1
    COtxValue pattern;
    std::vector<Reply> replies;
};

// Reads "[inside] [N] MESSAGE -> REPLY -> REPLY", both JSON; a reply may be "control COMMAND JSON" or "expire" as well.
// Throws std::runtime_error.
AnswerRule readAnswer(const std::string& text);

// Whether the message has all entries of the pattern; a map within it only needs those that the pattern tells.
bool matches(const COtxValue& pattern, const COtxValue& message);

}  // namespace documents
