// Documents that were meant as XML and aren't taken as such.
#pragma once

#include <iosfwd>

namespace velkotx::host {

// Whether the stream holds what its author takes for XML, while a loader looks for the compiled form in it: its first word is
// another one than <?xml and begins with <, a byte order mark or UTF-16. The stream is read from its beginning, whatever its
// state, and left behind that word.
bool isNearlyXml(std::istream& document);

}  // namespace velkotx::host
