// The operations of strings and their encodings.
#include "Thrown.h"

namespace {

using Encoding = COtxStringEncoding::Encoding;
using tests::outOfBounds;
using tests::stringUtil;
using tests::typeMismatch;
using tests::unsupportedEncoding;

COtxInt number(long long value) { return COtxInt(value); }
COtxString text(const std::string& content) { return COtxString(content); }

const std::string umlauts = "\xC3\xA4\xC3\xB6\xC3\xBC";  // a, o, u with diaeresis

std::string encoded(const std::string& content, Encoding encoding) {
    return COtxByteField(content, encoding).ToString().String();
}

std::string decoded(std::vector<unsigned char> bytes, Encoding encoding) {
    return COtxString(bytes, encoding).String();
}

void put(std::string& text, unsigned character) {
    const auto putByte = [&text](unsigned bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
    if (character < 0x80) return putByte(character);
    if (character < 0x800) {
        putByte(0xC0 | character >> 6);
    } else {
        if (character < 0x10000) {
            putByte(0xE0 | character >> 12);
        } else {
            putByte(0xF0 | character >> 18);
            putByte(0x80 | (character >> 12 & 0x3F));
        }
        putByte(0x80 | (character >> 6 & 0x3F));
    }
    putByte(0x80 | (character & 0x3F));
}

std::string joined(const COtxValue& list) {
    std::string result;
    for (const COtxValue& part : list.List()) result.append("[").append(part.String()).append("]");
    return result;
}

}  // namespace

TEST(String, IsAlsoTheTextItself) {
    const COtxString value("abc");
    const std::string& plain = value.String();
    EXPECT_EQ(plain, "abc");
    EXPECT_EQ(value.String().size(), 3u);
    EXPECT_EQ(COtxString().String(), "");
    EXPECT_EQ(COtxString(std::string("a\0b", 3)).String().size(), 3u);
}

TEST(String, LengthCountsCharacters) {
    EXPECT_EQ(text("abc").String().Length().Int(), 3);
    EXPECT_EQ(text("").String().Length().Int(), 0);
    EXPECT_EQ(text(umlauts).String().Length().Int(), 3);
    EXPECT_EQ(text("\xF0\x9F\x98\x80").String().Length().Int(), 1);
    EXPECT_EQ(text("a\xFF\xFEz").String().Length().Int(), 4);
}

TEST(String, IndexOfFindsTheFirstPlaceOrMinusOne) {
    EXPECT_EQ(text("abcabc").String().IndexOf(text("c")).Int(), 2);
    EXPECT_EQ(text("abc").String().IndexOf(text("x")).Int(), -1);
    EXPECT_EQ(text("abc").String().IndexOf(text("")).Int(), 0);
    EXPECT_EQ(text(umlauts).String().IndexOf(text("\xC3\xBC")).Int(), 2);
    EXPECT_EQ(OTX_THROWN_KIND(text("1").String().IndexOf(number(1))), typeMismatch);
}

// The positions of characters in texts of every kind, against counting them one by one.
TEST(String, PositionsAgreeInEveryText) {
    const std::vector<std::string> pieces = {"a", "abcdefghijklmnopqrstuvwxyz", "\xC3\xA4", "\xE4\xB8\xAD", "\xF0\x9F\x98\x80",
                                             "\xFF", "\x80", "\xE4\xB8", "\xED\xA0\x80"};
    std::uint32_t random = 7;
    for (int round = 0; round < 40; ++round) {
        // Few rounds have bytes that are no UTF-8, which the quick ways exclude.
        const std::size_t kinds = round % 4 == 3 ? pieces.size() : 5;
        std::vector<std::string> characters;
        std::string content;
        for (int piece = 0; piece < round * 8; ++piece) {
            random = random * 1664525 + 1013904223;
            content += pieces[(random >> 16) % kinds];
        }
        const COtxString whole(content);
        const COtxValue split = whole.String().Split(text(""));
        for (const COtxValue& character : split.List()) characters.push_back(character.String());
        const auto count = static_cast<long long>(characters.size());
        ASSERT_EQ(whole.String().Length().Int(), count);
        std::size_t place = 0;
        for (long long position = 0; position < count; ++position) {
            const std::string rest = content.substr(place);
            ASSERT_EQ(whole.String().SubString(number(position), number(count)).String(), rest) << position;
            ASSERT_EQ(whole.String().SubString(number(0), number(position)).String(), content.substr(0, place)) << position;
            ASSERT_LE(whole.String().IndexOf(text(characters[static_cast<std::size_t>(position)])).Int(), position);
            place += characters[static_cast<std::size_t>(position)].size();
        }
        ASSERT_EQ(OTX_THROWN_KIND(whole.String().SubString(number(count + 1), number(0))), outOfBounds);
        ASSERT_EQ(COtxString(content + "|").String().IndexOf(text("|")).Int(), count);
    }
}

TEST(String, SubStringTakesWhatIsThere) {
    EXPECT_EQ(text("abcdef").String().SubString(number(1), number(3)).String(), "bcd");
    EXPECT_EQ(text("abc").String().SubString(number(1), number(99)).String(), "bc");
    EXPECT_EQ(text("abc").String().SubString(number(3), number(1)).String(), "");
    EXPECT_EQ(text(umlauts).String().SubString(number(1), number(1)).String(), "\xC3\xB6");
    EXPECT_EQ(OTX_THROWN_KIND(text("abc").String().SubString(number(4), number(1))), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(text("abc").String().SubString(number(-1), number(1))), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(text("abc").String().SubString(number(0), number(-1))), outOfBounds);
}

TEST(String, ReplaceWritesOverAndLengthens) {
    EXPECT_EQ(text("abcdef").String().Replace(text("XY"), number(2)).String(), "abXYef");
    EXPECT_EQ(text("abc").String().Replace(text("XYZ"), number(2)).String(), "abXYZ");
    EXPECT_EQ(text("abc").String().Replace(text("XY"), number(3)).String(), "abcXY");
    EXPECT_EQ(text(umlauts).String().Replace(text("x"), number(1)).String(), "\xC3\xA4x\xC3\xBC");
    EXPECT_EQ(OTX_THROWN_KIND(text("abc").String().Replace(text("x"), number(4))), outOfBounds);
}

TEST(String, SplitKeepsEmptyParts) {
    EXPECT_EQ(joined(text("a,b,,c,").String().Split(text(","))), "[a][b][][c][]");
    EXPECT_EQ(joined(text("").String().Split(text(","))), "[]");
    EXPECT_EQ(joined(text("a--b").String().Split(text("--"))), "[a][b]");
    EXPECT_EQ(joined(text("a\xC3\xA4\xFF").String().Split(text(""))), "[a][\xC3\xA4][\xFF]");
    EXPECT_EQ(joined(text("").String().Split(text(""))), "");
}

TEST(String, CaseFollowsUnicodeUnderEveryLocale) {
    EXPECT_EQ(text("abcXYZ-09").String().ToUpper().String(), "ABCXYZ-09");
    EXPECT_EQ(text("abcXYZ-09").String().ToLower().String(), "abcxyz-09");
    EXPECT_EQ(text(umlauts).String().ToUpper().String(), "\xC3\x84\xC3\x96\xC3\x9C");
    EXPECT_EQ(text("\xC3\x9F\xC3\xB7").String().ToUpper().String(), "SS\xC3\xB7");                // sharp s; divide stays
    EXPECT_EQ(text("\xC5\xB8").String().ToLower().String(), "\xC3\xBF");                           // Y diaeresis
    EXPECT_EQ(text("\xCE\xB1\xCF\x89").String().ToUpper().String(), "\xCE\x91\xCE\xA9");          // alpha, omega
    EXPECT_EQ(text("\xCE\x9F\xCE\xA3").String().ToLower().String(), "\xCE\xBF\xCF\x82");          // the last sigma
    EXPECT_EQ(text("\xD0\xB6\xD1\x91").String().ToUpper().String(), "\xD0\x96\xD0\x81");          // zhe, io
    EXPECT_EQ(text("\xC4\xB1i").String().ToUpper().String(), "II");                                  // without a dot
    EXPECT_EQ(text("\xC4\xB0I").String().ToLower().String(), "i\xCC\x87i");                          // with one
    EXPECT_EQ(text("\xF0\x90\x90\xA8").String().ToUpper().String(), "\xF0\x90\x90\x80");          // beyond 16 bits
    EXPECT_EQ(text("").String().ToUpper().String(), "");
    // Bytes that are no UTF-8 stay.
    EXPECT_EQ(text("a\xFF").String().ToUpper().String(), "A\xFF");
    EXPECT_EQ(text("\xFFxY\xC3").String().ToLower().String(), "\xFFxy\xC3");
    EXPECT_EQ(text(std::string(10'000'000, 'a')).String().ToUpper().String(), std::string(10'000'000, 'A'));
}

TEST(String, MatchTakesTheWholeText) {
    EXPECT_TRUE(text("abc123").String().Match(text("[a-z]+\\d{3}")).Bool());
    EXPECT_FALSE(text("abc1234").String().Match(text("[a-z]+\\d{3}")).Bool());
    EXPECT_TRUE(text(umlauts).String().Match(text("...")).Bool());
    EXPECT_TRUE(text("abab").String().Match(text("(ab)\\1")).Bool());
    EXPECT_FALSE(text("abac").String().Match(text("(ab)\\1")).Bool());
    EXPECT_TRUE(text("550e8400-e29b-41d4-a716-446655440000")
                    .String()
                    .Match(text("[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}"))
                    .Bool());
    EXPECT_EQ(OTX_THROWN_KIND(text("a").String().Match(text("("))), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(text("a").String().Match(number(1))), typeMismatch);
}

TEST(StringEncoding, NumbersFollowTheLiterals) {
    const char* const literals[] = {"US-ASCII", "ISO-8859-1", "UTF-8", "UTF-16BE", "UTF-16LE",
                                    "UTF-16",   "BIN",        "OCT",   "HEX"};
    for (int place = 0; place < 9; ++place) {
        const COtxStringEncoding byName{std::string(literals[place])};
        EXPECT_EQ(byName.Int(), place);
        EXPECT_EQ(COtxStringEncoding(static_cast<Encoding>(place)).ToString().String(), literals[place]);
    }
    EXPECT_EQ(OTX_THROWN_KIND(COtxStringEncoding(std::string("utf-8"))), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(COtxStringEncoding(std::string())), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(COtxStringEncoding(static_cast<Encoding>(9))), unsupportedEncoding);
}

TEST(StringEncoding, Encodes) {
    EXPECT_EQ(encoded("AB", Encoding::UsAscii), "4142");
    EXPECT_EQ(encoded(umlauts, Encoding::Iso8859_1), "E4F6FC");
    EXPECT_EQ(encoded(umlauts, Encoding::Utf8), "C3A4C3B6C3BC");
    EXPECT_EQ(encoded("A\xC3\xA4", Encoding::Utf16BE), "004100E4");
    EXPECT_EQ(encoded("A\xC3\xA4", Encoding::Utf16LE), "4100E400");
    EXPECT_EQ(encoded("A", Encoding::Utf16), "FEFF0041");
    EXPECT_EQ(encoded("\xF0\x9F\x98\x80", Encoding::Utf16BE), "D83DDE00");
    EXPECT_EQ(encoded("0000101011111111", Encoding::Bin), "0AFF");
    EXPECT_EQ(encoded("012377", Encoding::Oct), "0AFF");
    EXPECT_EQ(encoded("0aFF", Encoding::Hex), "0AFF");
    EXPECT_EQ(encoded("", Encoding::Hex), "");
}

TEST(StringEncoding, Decodes) {
    EXPECT_EQ(decoded({0x41, 0x42}, Encoding::UsAscii), "AB");
    EXPECT_EQ(decoded({0xE4, 0xF6, 0xFC}, Encoding::Iso8859_1), umlauts);
    EXPECT_EQ(decoded({0xC3, 0xA4}, Encoding::Utf8), "\xC3\xA4");
    EXPECT_EQ(decoded({0x00, 0x41, 0xD8, 0x3D, 0xDE, 0x00}, Encoding::Utf16BE), "A\xF0\x9F\x98\x80");
    EXPECT_EQ(decoded({0x41, 0x00}, Encoding::Utf16LE), "A");
    EXPECT_EQ(decoded({0xFF, 0xFE, 0x41, 0x00}, Encoding::Utf16), "A");
    EXPECT_EQ(decoded({0xFE, 0xFF, 0x00, 0x41}, Encoding::Utf16), "A");
    EXPECT_EQ(decoded({0x00, 0x41}, Encoding::Utf16), "A");
    EXPECT_EQ(decoded({0x0A, 0xFF}, Encoding::Bin), "0000101011111111");
    EXPECT_EQ(decoded({0x0A, 0xFF}, Encoding::Oct), "012377");
    EXPECT_EQ(decoded({0x0A, 0xFF}, Encoding::Hex), "0AFF");
}

TEST(StringEncoding, EveryCharacterComesBack) {
    std::string all;
    for (unsigned character = 0; character <= 0x10FFFF; ++character) {
        if (character < 0xD800 || character > 0xDFFF) put(all, character);
    }
    for (const Encoding encoding : {Encoding::Utf8, Encoding::Utf16, Encoding::Utf16BE, Encoding::Utf16LE}) {
        const COtxByteField bytes(all, encoding);
        const std::vector<unsigned char>& plain = bytes.ByteField();
        EXPECT_TRUE(COtxString(plain, encoding).String() == all) << encoding;
    }
    EXPECT_EQ(text(all).String().Length().Int(), 0x110000 - 0x800);
    std::vector<unsigned char> latin;
    for (unsigned byte = 0; byte < 256; ++byte) latin.push_back(static_cast<unsigned char>(byte));
    const COtxByteField bytes(COtxString(latin, Encoding::Iso8859_1).String(), Encoding::Iso8859_1);
    EXPECT_EQ(static_cast<const std::vector<unsigned char>&>(bytes.ByteField()), latin);
}

// Those that nobody sees, such as a joiner, count like any other.
TEST(StringEncoding, NarrowEncodingsRefuseEveryFurtherCharacter) {
    for (unsigned character = 0x80; character < 0x10000; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF) continue;
        std::string content = "a";
        put(content, character);
        EXPECT_EQ(OTX_THROWN_KIND(encoded(content, Encoding::UsAscii)), unsupportedEncoding) << character;
        if (character >= 0x100) {
            EXPECT_EQ(OTX_THROWN_KIND(encoded(content, Encoding::Iso8859_1)), unsupportedEncoding) << character;
        }
    }
    EXPECT_EQ(OTX_THROWN_KIND(encoded("\xF3\xA0\x80\x81", Encoding::Iso8859_1)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(encoded("\xC3", Encoding::Iso8859_1)), unsupportedEncoding);
}

TEST(StringEncoding, RefusesWhatAnEncodingCannotCarry) {
    EXPECT_EQ(OTX_THROWN_KIND(encoded(umlauts, Encoding::UsAscii)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(encoded("\xE2\x82\xAC", Encoding::Iso8859_1)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(encoded("\xFF", Encoding::Utf8)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(encoded("0A1", Encoding::Hex)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(encoded("0G", Encoding::Hex)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(encoded("00000002", Encoding::Bin)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(encoded("400", Encoding::Oct)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(encoded("a", static_cast<Encoding>(77))), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0x80}, Encoding::UsAscii)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0xC0, 0x80}, Encoding::Utf8)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0xED, 0xA0, 0x80}, Encoding::Utf8)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0xF4, 0x90, 0x80, 0x80}, Encoding::Utf8)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0x41}, Encoding::Utf16BE)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0xDC, 0x00}, Encoding::Utf16BE)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0xD8, 0x00}, Encoding::Utf16BE)), unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_TEXT(encoded(umlauts, Encoding::UsAscii)), "The text can't be encoded in US-ASCII");
    EXPECT_EQ(OTX_THROWN_TEXT(decoded({0x80}, Encoding::UsAscii)), "The bytes are no text in US-ASCII");
}
