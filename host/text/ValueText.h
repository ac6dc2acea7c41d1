// Values as people write and read them.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

namespace velkotx::host {

// What a person means by a text: JSON (plain or OTX form) if it can be read as such, else the text itself.
COtxValue valueOf(const std::string& text);

// The value on one line, for a person; whatever it holds, nothing else comes of it.
std::string lineOf(const COtxValue& value);

}  // namespace velkotx::host
