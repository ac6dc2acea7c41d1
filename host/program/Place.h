// Where in a document a loader's message points.
#pragma once

#include <string>

namespace velkotx::host {

struct PlacedMessage {
    std::string place;    // ":12:8", line and column from 1; empty where the message doesn't tell
    std::string message;  // without the place
};

// Takes the first place, ":12:8 error: ", out of a message of the XML reader, so that it can stand behind the file's
// name, where people and editors look for it.
PlacedMessage takePlace(const std::string& message);

}  // namespace velkotx::host
