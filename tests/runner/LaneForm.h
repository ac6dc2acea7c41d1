// A document with its procedures' flows inside lanes.
#pragma once

#include <optional>
#include <set>
#include <string>

namespace documents {

// The flow of each of these procedures becomes the one lane of a parallel node. Nothing if there is no such flow, or the text
// isn't one of bytes.
std::optional<std::string> insideLanes(const std::string& document, const std::set<std::string>& procedures);

}  // namespace documents
