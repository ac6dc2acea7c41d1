// Texts as bytes in each of the string encodings.
#include "StringBytes.h"

#include <unicode/localpointer.h>
#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <limits>
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

[[noreturn]] void failDecode(Encoding encoding) { failEncoding(noTextIn(encoding)); }

constexpr char16_t byteOrderMark = 0xFEFF;

const char* converterOf(Encoding encoding) noexcept { return encoding == Encoding::Utf16LE ? "UTF-16LE" : "UTF-16BE"; }

// The encodings of one byte a character hold the first so many characters of Unicode.
char32_t charactersOf(Encoding encoding) noexcept { return encoding == Encoding::UsAscii ? 0x80 : 0x100; }

Bytes encodeNarrow(std::string_view text, Encoding encoding) {
    const char32_t characters = charactersOf(encoding);
    Bytes bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const auto character = takeCharacter(text);
        if (!character || *character >= characters) failEncode(encoding);
        bytes.push_back(static_cast<unsigned char>(*character));
    }
    return bytes;
}

std::string decodeNarrow(const Bytes& bytes, Encoding encoding) {
    const char32_t characters = charactersOf(encoding);
    std::string text;
    text.reserve(bytes.size());
    for (const unsigned char byte : bytes) {
        if (byte >= characters) failDecode(encoding);
        appendUtf8(text, byte);
    }
    return text;
}

// Stops at whatever the encoding can't carry.
icu::LocalUConverterPointer openConverter(Encoding encoding) {
    UErrorCode error = U_ZERO_ERROR;
    icu::LocalUConverterPointer converter(ucnv_open(converterOf(encoding), &error));
    ucnv_setFromUCallBack(converter.getAlias(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    ucnv_setToUCallBack(converter.getAlias(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    if (U_FAILURE(error)) failEncoding(std::string("The converter is missing: ") + u_errorName(error));
    return converter;
}

// Sizes as the converters count them, with room for the largest form of each unit.
std::int32_t sizeOf(std::size_t size) {
    if (size > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() / 4) - 16)
        failEncoding("The text is too long to be converted");
    return static_cast<std::int32_t>(size);
}

Bytes encodeConverted(const std::string& text, Encoding encoding) {
    const std::int32_t size = sizeOf(text.size());
    std::u16string units(text.size() + 1, u'\0');
    std::int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8(units.data(), size + 1, &length, text.data(), size, &error);
    if (U_FAILURE(error)) failEncode(encoding);
    units.resize(static_cast<std::size_t>(length));
    if (encoding == Encoding::Utf16) units.insert(units.begin(), byteOrderMark);

    const auto converter = openConverter(encoding);
    const auto count = static_cast<std::int32_t>(units.size());
    Bytes bytes(static_cast<std::size_t>(
        UCNV_GET_MAX_BYTES_FOR_STRING(count, ucnv_getMaxCharSize(converter.getAlias()))));
    const std::int32_t written = ucnv_fromUChars(converter.getAlias(), reinterpret_cast<char*>(bytes.data()),
                                                 static_cast<std::int32_t>(bytes.size()), units.data(), count, &error);
    if (U_FAILURE(error)) failEncode(encoding);
    bytes.resize(static_cast<std::size_t>(written));
    return bytes;
}

// UTF-16 of either order: read by the mark, which goes.
Encoding orderByMark(const unsigned char*& begin, std::size_t& size) noexcept {
    if (size < 2) return Encoding::Utf16BE;
    const unsigned mark = begin[0] * 256u + begin[1];
    if (mark != byteOrderMark && mark != 0xFFFE) return Encoding::Utf16BE;
    begin += 2;
    size -= 2;
    return mark == byteOrderMark ? Encoding::Utf16BE : Encoding::Utf16LE;
}

std::string decodeConverted(const Bytes& bytes, Encoding encoding) {
    const unsigned char* begin = bytes.data();
    std::size_t size = bytes.size();
    const Encoding order = encoding == Encoding::Utf16 ? orderByMark(begin, size) : encoding;

    const auto converter = openConverter(order);
    std::u16string units(size + 1, u'\0');
    UErrorCode error = U_ZERO_ERROR;
    const std::int32_t count = ucnv_toUChars(converter.getAlias(), units.data(), sizeOf(units.size()),
                                             reinterpret_cast<const char*>(begin), sizeOf(size), &error);
    if (U_FAILURE(error)) failDecode(encoding);

    std::string text(static_cast<std::size_t>(count) * 3 + 1, '\0');
    std::int32_t length = 0;
    u_strToUTF8(text.data(), static_cast<std::int32_t>(text.size()), &length, units.data(), count, &error);
    if (U_FAILURE(error)) failDecode(encoding);
    text.resize(static_cast<std::size_t>(length));
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
        case Encoding::Utf8:
            if (!isUtf8(text)) failEncode(encoding);
            return Bytes(text.begin(), text.end());
        case Encoding::UsAscii:
        case Encoding::Iso8859_1: return encodeNarrow(text, encoding);
        case Encoding::Utf16BE:
        case Encoding::Utf16LE:
        case Encoding::Utf16: return encodeConverted(text, encoding);
        case Encoding::Bin:
        case Encoding::Oct:
        case Encoding::Hex: return encodeDigits(text, encoding);
    }
    failEncoding("Unknown encoding " + std::to_string(static_cast<int>(encoding)));
}

std::string noTextIn(Encoding encoding) {
    return "The bytes are no text in " + enumerationLiteral(OTX::ValueType::StringEncoding, static_cast<int>(encoding));
}

std::string decodeText(const std::vector<unsigned char>& bytes, Encoding encoding) {
    switch (encoding) {
        case Encoding::Utf8: {
            std::string text(bytes.begin(), bytes.end());
            if (!isUtf8(text)) failDecode(encoding);
            return text;
        }
        case Encoding::UsAscii:
        case Encoding::Iso8859_1: return decodeNarrow(bytes, encoding);
        case Encoding::Utf16BE:
        case Encoding::Utf16LE:
        case Encoding::Utf16: return decodeConverted(bytes, encoding);
        case Encoding::Bin:
        case Encoding::Oct:
        case Encoding::Hex: return decodeDigits(bytes, encoding);
    }
    failEncoding("Unknown encoding " + std::to_string(static_cast<int>(encoding)));
}

}  // namespace otx
