// Makers of the library's own ByteField.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>
#include <vector>

namespace otx {

COtxValue makeByteField(std::vector<unsigned char> bytes);

// Upper-case, two digits a byte.
std::string hexText(const std::vector<unsigned char>& bytes);

}  // namespace otx
