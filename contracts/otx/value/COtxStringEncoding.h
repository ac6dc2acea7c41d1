// How a text is laid out in bytes.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

// An Integer-backed enumeration: Int() answers the number, ToString() the literal.
class OTX_API COtxStringEncoding : public COtxValue {
public:
    // Literals: "US-ASCII", "ISO-8859-1", "UTF-8", "UTF-16BE", "UTF-16LE", "UTF-16", "BIN", "OCT", "HEX". Utf16 writes a
    // byte order mark and big-endian, and reads either order by the mark, big-endian without one. The last three are
    // bytes spelt as digits: eight binary, three octal or two hexadecimal ones a byte.
    enum Encoding : int {
        UsAscii = 0,
        Iso8859_1 = 1,
        Utf8 = 2,
        Utf16BE = 3,
        Utf16LE = 4,
        Utf16 = 5,
        Bin = 6,
        Oct = 7,
        Hex = 8
    };

    // Throws kind 20 (UnsupportedEncodingException) for a number or a literal that isn't one of these.
    explicit COtxStringEncoding(Encoding encoding);
    explicit COtxStringEncoding(const std::string& literal);
};
