// What both targets demand of a document that was loaded.
#pragma once

namespace otxns {
class Otx;
}

namespace fuzz {

// Saves the tree, loads what was saved and saves that; the process is aborted unless both are the same bytes.
void requireRoundTrip(const otxns::Otx& tree);

}  // namespace fuzz
