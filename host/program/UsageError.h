// The user asked for something that can't be done: an argument without sense, a file of arguments that isn't there.
#pragma once

#include <stdexcept>

namespace velkotx::host {

class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace velkotx::host
