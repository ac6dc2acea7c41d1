// Makers of the library's own String.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

namespace otx {

COtxValue makeText(std::string text);

// The text of a String value in a place of the calling thread's own, where it stays until the next call.
const char* lastingText(const COtxValue& text);

}  // namespace otx
