// Opening files below a folder, and nowhere else.
#pragma once

#include "store/Descriptor.h"

#include <otx/value/Exceptions_e.h>

#include <string>

namespace velkotx::host {

// Throws std::runtime_error with the system's words.
Descriptor openFolder(const std::string& folder);

// Opens a plain file for reading. The name is a path of steps below the folder, each of which has to be there itself: a name
// with "." or "..", with an empty step, such as an absolute one, or with a symbolic link on the way is refused. Every step is
// opened from the one before, so nobody who changes the folder meanwhile can lead the way out. Throws COtxException with
// the file's name: kind 35 for what may not be read, 38 for a file that somebody holds, 40 for what is no plain file or can't be
// opened for another reason; kind 39 without a text for what isn't there.
Descriptor openBeneath(const Descriptor& folder, const std::string& name);

// Throws COtxException, kind 35, for a name that openBeneath refuses whatever is in the folder.
void requireName(const std::string& name);

// Throws COtxException with that kind, the text led in by the name.
[[noreturn]] void failStore(OTX::Exceptions_e kind, const std::string& name, const std::string& reason);

}  // namespace velkotx::host
