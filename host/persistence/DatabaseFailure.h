// The database refused something.
#pragma once

#include <stdexcept>

namespace velkotx::host {

// what() says why, without the file's name.
class DatabaseFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace velkotx::host
