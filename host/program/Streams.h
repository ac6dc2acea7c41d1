// The three streams of the program, handed down so that tests can bring their own.
#pragma once

#include <iosfwd>

namespace velkotx::host {

struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

}  // namespace velkotx::host
