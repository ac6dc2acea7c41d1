// Texts as bytes in each of the string encodings.
#pragma once

#include <otx/value/COtxStringEncoding.h>

#include <string>
#include <vector>

namespace otx {

// Both throw kind 20 for what the encoding can't carry and for a number that is no encoding.
std::vector<unsigned char> encodeText(const std::string& text, COtxStringEncoding::Encoding encoding);
std::string decodeText(const std::vector<unsigned char>& bytes, COtxStringEncoding::Encoding encoding);

// What decodeText says of bytes that are no text in that encoding.
std::string noTextIn(COtxStringEncoding::Encoding encoding);

}  // namespace otx
