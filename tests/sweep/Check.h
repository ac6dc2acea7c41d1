// Loads and saves one compiled file, and judges how that went.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace sweep {

struct Judgement {
    bool loaded = false;
    std::size_t largestAllocation = 0;
    // What went wrong; empty if the file was loaded or refused as it must be.
    std::string failure;
};

// Either the tree runtime's exception refuses the bytes, or they make a tree that is saved, and what was saved makes a
// tree that is saved as the same bytes. No allocation of the reading may pass the limit.
Judgement check(const std::vector<char>& bytes);

// The compiled form of a file: of an OTX document, or of a file that is compiled already. Throws what loading throws.
std::vector<char> compiledForm(const std::string& path);

}  // namespace sweep
