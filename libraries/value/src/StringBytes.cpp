// Texts as bytes in each of the string encodings.
#include "StringBytes.h"

#include <string_view>

#include "Enumerations.h"
#include "Refusal.h"
#include "Utf8.h"

namespace otx {

namespace {

using Encoding = COtxStringEncoding::Encoding;
using Bytes = std::vector<unsigned char>;

[[noreturn]] void failEncoding(const std::string& text) {
    fail(OTX::Exceptions_e::UnsupportedEncodingException, text);
}

[[noreturn]] void failEncode(Encoding encoding) {
    failEncoding("The text can't be encoded in " +
                 enumerationLiteral(OTX::ValueType::StringEncoding, static_cast<int>(encoding)));
}

[[noreturn]] void failDecode(Encoding encoding) {
    failEncoding("The bytes are no text in " +
                 enumerationLiteral(OTX::ValueType::StringEncoding, static_cast<int>(encoding)));
}

// Calls with each character of a UTF-8 text.
template <class Take>
void eachCharacter(std::string_view text, Encoding encoding, Take take) {
    while (!text.empty()) {
        const auto character = takeCharacter(text);
        if (!character) failEncode(encoding);
        take(*character);
    }
}

Bytes encodeNarrow(const std::string& text, Encoding encoding, char32_t largest) {
    Bytes bytes;
    bytes.reserve(text.size());
    eachCharacter(text, encoding, [&](char32_t character) {
        if (character > largest) failEncode(encoding);
        bytes.push_back(static_cast<unsigned char>(character));
    });
    return bytes;
}

std::string decodeNarrow(const Bytes& bytes, Encoding encoding, char32_t largest) {
    std::string text;
    text.reserve(bytes.size());
    for (const unsigned char byte : bytes) {
        if (byte > largest) failDecode(encoding);
        appendUtf8(text, byte);
    }
    return text;
}

Bytes encodeUtf16(const std::string& text, Encoding encoding) {
    Bytes bytes;
    const auto putUnit = [&](char32_t unit) {
        const auto high = static_cast<unsigned char>(unit >> 8);
        const auto low = static_cast<unsigned char>(unit);
        const bool little = encoding == Encoding::Utf16LE;
        bytes.push_back(little ? low : high);
        bytes.push_back(little ? high : low);
    };
    if (encoding == Encoding::Utf16) putUnit(0xFEFF);
    eachCharacter(text, encoding, [&](char32_t character) {
        if (character < 0x10000) {
            putUnit(character);
        } else {
            putUnit(0xD800 + ((character - 0x10000) >> 10));
            putUnit(0xDC00 + ((character - 0x10000) & 0x3FF));
        }
    });
    return bytes;
}

std::string decodeUtf16(const Bytes& bytes, Encoding encoding) {
    if (bytes.size() % 2 != 0) failDecode(encoding);
    bool little = encoding == Encoding::Utf16LE;
    const auto unitAt = [&](std::size_t place) {
        return little ? static_cast<char32_t>(bytes[place] | bytes[place + 1] << 8)
                      : static_cast<char32_t>(bytes[place] << 8 | bytes[place + 1]);
    };
    std::size_t place = 0;
    if (encoding == Encoding::Utf16 && bytes.size() >= 2) {
        const char32_t mark = unitAt(0);
        little = mark == 0xFFFE;
        if (little || mark == 0xFEFF) place = 2;
    }
    std::string text;
    for (; place < bytes.size(); place += 2) {
        const char32_t unit = unitAt(place);
        if (unit < 0xD800 || unit > 0xDFFF) {
            appendUtf8(text, unit);
            continue;
        }
        place += 2;
        if (unit > 0xDBFF || place >= bytes.size()) failDecode(encoding);
        const char32_t second = unitAt(place);
        if (second < 0xDC00 || second > 0xDFFF) failDecode(encoding);
        appendUtf8(text, 0x10000 + ((unit - 0xD800) << 10) + (second - 0xDC00));
    }
    return text;
}

// Bytes spelt as digits of a base that is a power of two.
struct Digits {
    unsigned bits;
    std::size_t perByte;
};

Digits digitsOf(Encoding encoding) {
    if (encoding == Encoding::Bin) return {1, 8};
    if (encoding == Encoding::Oct) return {3, 3};
    return {4, 2};
}

unsigned digitValue(char digit) {
    if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
    if (digit >= 'A' && digit <= 'F') return static_cast<unsigned>(digit - 'A') + 10;
    if (digit >= 'a' && digit <= 'f') return static_cast<unsigned>(digit - 'a') + 10;
    return 16;
}

Bytes encodeDigits(const std::string& text, Encoding encoding) {
    const Digits digits = digitsOf(encoding);
    if (text.size() % digits.perByte != 0) failEncode(encoding);
    Bytes bytes;
    bytes.reserve(text.size() / digits.perByte);
    for (std::size_t place = 0; place < text.size(); place += digits.perByte) {
        unsigned byte = 0;
        for (std::size_t digit = 0; digit < digits.perByte; ++digit) {
            const unsigned value = digitValue(text[place + digit]);
            if (value >> digits.bits != 0) failEncode(encoding);
            byte = byte << digits.bits | value;
        }
        if (byte > 0xFF) failEncode(encoding);
        bytes.push_back(static_cast<unsigned char>(byte));
    }
    return bytes;
}

std::string decodeDigits(const Bytes& bytes, Encoding encoding) {
    const Digits digits = digitsOf(encoding);
    std::string text;
    text.reserve(bytes.size() * digits.perByte);
    for (const unsigned char byte : bytes) {
        for (std::size_t digit = digits.perByte; digit-- > 0;)
            text += "0123456789ABCDEF"[byte >> (digit * digits.bits) & ((1u << digits.bits) - 1)];
    }
    return text;
}

}  // namespace

std::vector<unsigned char> encodeText(const std::string& text, Encoding encoding) {
    switch (encoding) {
        case Encoding::UsAscii: return encodeNarrow(text, encoding, 0x7F);
        case Encoding::Iso8859_1: return encodeNarrow(text, encoding, 0xFF);
        case Encoding::Utf8: eachCharacter(text, encoding, [](char32_t) {}); return Bytes(text.begin(), text.end());
        case Encoding::Utf16BE:
        case Encoding::Utf16LE:
        case Encoding::Utf16: return encodeUtf16(text, encoding);
        case Encoding::Bin:
        case Encoding::Oct:
        case Encoding::Hex: return encodeDigits(text, encoding);
    }
    failEncoding("Unknown encoding " + std::to_string(static_cast<int>(encoding)));
}

std::string decodeText(const std::vector<unsigned char>& bytes, Encoding encoding) {
    switch (encoding) {
        case Encoding::UsAscii: return decodeNarrow(bytes, encoding, 0x7F);
        case Encoding::Iso8859_1: return decodeNarrow(bytes, encoding, 0xFF);
        case Encoding::Utf8: {
            std::string text(bytes.begin(), bytes.end());
            for (std::string_view rest = text; !rest.empty();) {
                if (!takeCharacter(rest)) failDecode(encoding);
            }
            return text;
        }
        case Encoding::Utf16BE:
        case Encoding::Utf16LE:
        case Encoding::Utf16: return decodeUtf16(bytes, encoding);
        case Encoding::Bin:
        case Encoding::Oct:
        case Encoding::Hex: return decodeDigits(bytes, encoding);
    }
    failEncoding("Unknown encoding " + std::to_string(static_cast<int>(encoding)));
}

}  // namespace otx
