// The String value.
#pragma once

#include <otx/value/COtxStringEncoding.h>
#include <otx/value/COtxValue.h>
#include <otx/value/IString.h>

#include <string>
#include <vector>

// A text in UTF-8; it never changes.
class OTX_API COtxString : public COtxValue {
public:
    COtxString();
    explicit COtxString(const std::string& text);
    explicit COtxString(std::string&& text);
    explicit COtxString(const char* text);
    // Decodes bytes. Throws kind 20 (UnsupportedEncodingException) for bytes that the encoding can't carry.
    COtxString(const std::vector<unsigned char>& bytes, COtxStringEncoding::Encoding encoding);
};
