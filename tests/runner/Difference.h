// The difference of two texts, for people.
#pragma once

#include <string>
#include <vector>

namespace documents {

// In the unified form, three lines of context. Empty for equal texts.
std::string difference(const std::vector<std::string>& expected, const std::vector<std::string>& actual);

}  // namespace documents
