// The time zone in which a document runs.
#include "Zone.h"

#include <cstdlib>
#include <ctime>

namespace documents {

void installZone(const std::string& zone) {
    ::setenv("TZ", zone.c_str(), 1);
    ::tzset();
}

}  // namespace documents
