// The time zone in which a document runs.
#pragma once

#include <string>

namespace documents {

// For the whole process, while nothing else runs in it: a zone in the form of the variable TZ.
void installZone(const std::string& zone);

}  // namespace documents
