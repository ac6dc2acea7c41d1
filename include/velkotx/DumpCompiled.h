// A compiled document shown field by field, for those who look into such files or write them.
#pragma once

#include <otx/Export.h>

#include <iosfwd>

namespace velkotx {

// Reads the stream to its end and writes one line a field: the offset in bytes from the start of the file, the first eight
// bytes in hexadecimal, the member and its value. Padding has lines of its own, and so has each object as it begins. No
// Sequencer is needed; any thread may call it. Throws std::runtime_error, "VelkOTX CDR Parsing Exception: " and the cause,
// for a file that isn't a compiled document, after the fields up to there.
OTX_API void DumpCompiled(std::istream& file, std::ostream& out);

}  // namespace velkotx
