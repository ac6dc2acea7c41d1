// Something that the user asked for can't be done: an argument that makes no sense, a file of arguments that isn't there.
#pragma once

#include <stdexcept>

namespace velkotx::host {

class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace velkotx::host
