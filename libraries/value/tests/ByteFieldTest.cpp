// Byte fields, their bits and the coding of integers in them.
#include <limits>

#include "Thrown.h"

namespace {

using OTX::Encoding;
using OTX::Endianness;
using tests::outOfBounds;
using tests::typeMismatch;

constexpr long long largest = std::numeric_limits<long long>::max();
constexpr long long smallest = std::numeric_limits<long long>::min();

using Bytes = std::vector<unsigned char>;

COtxByteField field(Bytes bytes) { return COtxByteField(std::move(bytes)); }
std::string hex(const COtxValue& value) { return value.ToString().String(); }

std::string encoded(long long value, int bits, Encoding encoding, Endianness order = Endianness::BigEndian) {
    return hex(COtxByteField(value, bits, encoding, order));
}

long long decoded(const Bytes& bytes, Encoding encoding, Endianness order = Endianness::BigEndian) {
    return COtxInt(bytes, static_cast<int>(bytes.size()) * 8, encoding, order, COtxInt::Hexadecimal).Int();
}

std::string shifted(Bytes bytes, int left, int right) {
    const COtxByteField value = field(std::move(bytes));
    if (left != 0) value.ByteField().ShiftLeft(left);
    if (right != 0) value.ByteField().ShiftRight(right);
    return hex(value);
}

}  // namespace

TEST(ByteField, IsAlsoTheBytesThemselves) {
    const COtxByteField value = field({1, 2});
    const std::vector<unsigned char>& plain = value.ByteField();
    EXPECT_EQ(plain.size(), 2u);
    EXPECT_EQ(COtxByteField().ByteField().size(), 0u);
    const unsigned char raw[] = {0xAB, 0xCD};
    EXPECT_EQ(hex(COtxByteField(raw, 2, Encoding::None, -1)), "ABCD");
    EXPECT_EQ(hex(COtxByteField(nullptr, 0, Encoding::None, -1)), "");
}

TEST(ByteField, KeepsOnlyTheBitsThatCount) {
    const unsigned char raw[] = {0xFF, 0xFF, 0xFF};
    EXPECT_EQ(hex(COtxByteField(raw, 3, Encoding::None, 12)), "000FFF");
    EXPECT_EQ(hex(COtxByteField(raw, 3, Encoding::None, 24)), "FFFFFF");
    EXPECT_EQ(hex(COtxByteField(raw, 3, Encoding::None, 8)), "0000FF");
    EXPECT_EQ(hex(COtxByteField(raw, 3, Encoding::None, 0)), "000000");
    EXPECT_EQ(OTX_THROWN_KIND(COtxByteField(raw, 3, Encoding::None, 25)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(COtxByteField(raw, -1, Encoding::None, -1)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(COtxByteField(nullptr, 1, Encoding::None, -1)), outOfBounds);
}

TEST(ByteField, Index0IsTheFirstByteAndPosition0TheLowestBit) {
    const COtxByteField value = field({0x01, 0x80});
    EXPECT_TRUE(value.ByteField().GetBit(0, 0));
    EXPECT_FALSE(value.ByteField().GetBit(0, 7));
    EXPECT_TRUE(value.ByteField().GetBit(1, 7));
    value.ByteField().SetBit(0, 7, true);
    value.ByteField().SetBit(1, 7, false);
    EXPECT_EQ(hex(value), "8100");
    for (const std::pair<int, int>& bad : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 8}}) {
        EXPECT_EQ(OTX_THROWN_KIND(value.ByteField().GetBit(bad.first, bad.second)), outOfBounds);
        EXPECT_EQ(OTX_THROWN_KIND(value.ByteField().SetBit(bad.first, bad.second, true)), outOfBounds);
    }
    EXPECT_EQ(hex(value), "8100");
    EXPECT_EQ(OTX_THROWN_KIND(COtxByteField().ByteField().GetBit(0, 0)), outOfBounds);
}

TEST(ByteField, BitwiseOperationsAlignAtTheLastByte) {
    const COtxByteField left = field({0x0F, 0xF0});
    EXPECT_EQ(hex(left.ByteField().And(field({0xFF}))), "00F0");
    EXPECT_EQ(hex(left.ByteField().Or(field({0x0F}))), "0FFF");
    EXPECT_EQ(hex(left.ByteField().Xor(field({0xFF, 0xFF, 0xFF}))), "FFF00F");
    EXPECT_EQ(hex(left.ByteField().Not()), "F00F");
    EXPECT_EQ(hex(left.ByteField().And(COtxByteField())), "0000");
    EXPECT_EQ(hex(COtxByteField().ByteField().Not()), "");
    EXPECT_EQ(hex(left), "0FF0");
    EXPECT_EQ(hex(left.ByteField().And(COtxInt(0xF000))), "000000000000" "0000");
    EXPECT_EQ(OTX_THROWN_KIND(left.ByteField().And(COtxList())), typeMismatch);
}

TEST(ByteField, ShiftsTreatItAsOneBigEndianNumber) {
    EXPECT_EQ(shifted({0x12, 0x34, 0x56}, 4, 0), "234560");
    EXPECT_EQ(shifted({0x12, 0x34, 0x56}, 0, 4), "012345");
    EXPECT_EQ(shifted({0x12, 0x34, 0x56}, 8, 0), "345600");
    EXPECT_EQ(shifted({0x12, 0x34, 0x56}, 0, 8), "001234");
    EXPECT_EQ(shifted({0x12, 0x34, 0x56}, 12, 0), "456000");
    EXPECT_EQ(shifted({0x12, 0x34, 0x56}, 0, 12), "000123");
    EXPECT_EQ(shifted({0x80, 0x01}, 1, 0), "0002");
    EXPECT_EQ(shifted({0x80, 0x01}, 0, 1), "4000");
    EXPECT_EQ(shifted({0xFF, 0xFF}, 16, 0), "0000");
    EXPECT_EQ(shifted({0xFF, 0xFF}, 0, std::numeric_limits<int>::max()), "0000");
    EXPECT_EQ(shifted({0xFF, 0xFF}, std::numeric_limits<int>::max(), 0), "0000");
    EXPECT_EQ(shifted({}, 3, 0), "");
    EXPECT_EQ(OTX_THROWN_KIND(shifted({1}, -1, 0)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(shifted({1}, 0, -1)), outOfBounds);
}

TEST(ByteField, ReplacementPastTheEndLengthens) {
    const COtxByteField value = field({1, 2, 3});
    value.ByteField().ReplaceSubByteField(field({0xAA}), 1);
    EXPECT_EQ(hex(value), "01AA03");
    value.ByteField().ReplaceSubByteField(field({0xBB, 0xCC}), 2);
    EXPECT_EQ(hex(value), "01AABBCC");
    value.ByteField().ReplaceSubByteField(field({0xDD}), 4);
    EXPECT_EQ(hex(value), "01AABBCCDD");
    value.ByteField().ReplaceSubByteField(value, 1);
    EXPECT_EQ(hex(value), "0101AABBCCDD");
    EXPECT_EQ(OTX_THROWN_KIND(value.ByteField().ReplaceSubByteField(field({0}), 7)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(value.ByteField().ReplaceSubByteField(field({0}), -1)), outOfBounds);
}

TEST(ByteField, AppendsInPlaceAndEvenItself) {
    const COtxByteField value = field({1});
    const COtxValue other = value;
    value.ByteField().Append(field({2, 3}));
    EXPECT_EQ(hex(other), "010203");
    value.ByteField().Append(value);
    EXPECT_EQ(hex(value), "010203010203");
    value.ByteField().Clear();
    EXPECT_EQ(hex(value), "000000000000");
}

TEST(ByteField, AppendAndReplaceTakeByteFieldsOnly) {
    const COtxByteField value = field({1, 2});
    EXPECT_EQ(OTX_THROWN_KIND(value.ByteField().Append(COtxString("A"))), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(value.ByteField().ReplaceSubByteField(COtxInt(1), 0)), typeMismatch);
    EXPECT_EQ(hex(value), "0102");
}

TEST(IntegerCoding, EncodesEachEncodingInEachSize) {
    for (const int bits : {8, 16, 32, 64}) {
        const std::string zeros(static_cast<std::size_t>(bits) / 4 - 2, '0');
        const std::string ones(static_cast<std::size_t>(bits) / 4 - 2, 'F');
        EXPECT_EQ(encoded(1, bits, Encoding::Unsigned), zeros + "01");
        EXPECT_EQ(encoded(1, bits, Encoding::SignedBinary), zeros + "01");
        EXPECT_EQ(encoded(1, bits, Encoding::TwosComplement), zeros + "01");
        EXPECT_EQ(encoded(-1, bits, Encoding::TwosComplement), ones + "FF");
        EXPECT_EQ(encoded(-1, bits, Encoding::SignedBinary), bits == 8 ? "81" : "80" + zeros.substr(2) + "01");
        EXPECT_EQ(encoded(-1, bits, Encoding::None), ones + "FF");
        EXPECT_EQ(encoded(1, bits, Encoding::Unsigned, Endianness::LittleEndian), "01" + zeros);
    }
    EXPECT_EQ(encoded(0x1234, 16, Encoding::Unsigned, Endianness::LittleEndian), "3412");
    EXPECT_EQ(encoded(0xABC, 12, Encoding::Unsigned), "0ABC");
}

TEST(IntegerCoding, RefusesValuesThatDontFit) {
    EXPECT_EQ(encoded(255, 8, Encoding::Unsigned), "FF");
    EXPECT_EQ(OTX_THROWN_KIND(encoded(256, 8, Encoding::Unsigned)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(encoded(-1, 64, Encoding::Unsigned)), outOfBounds);
    EXPECT_EQ(encoded(127, 8, Encoding::TwosComplement), "7F");
    EXPECT_EQ(encoded(-128, 8, Encoding::TwosComplement), "80");
    EXPECT_EQ(OTX_THROWN_KIND(encoded(128, 8, Encoding::TwosComplement)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(encoded(-129, 8, Encoding::TwosComplement)), outOfBounds);
    EXPECT_EQ(encoded(-127, 8, Encoding::SignedBinary), "FF");
    EXPECT_EQ(OTX_THROWN_KIND(encoded(-128, 8, Encoding::SignedBinary)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(encoded(smallest, 64, Encoding::SignedBinary)), outOfBounds);
    EXPECT_EQ(encoded(smallest, 64, Encoding::TwosComplement), "8000000000000000");
    EXPECT_EQ(encoded(largest, 64, Encoding::SignedBinary), "7FFFFFFFFFFFFFFF");
    for (const int bits : {0, -8, 65}) EXPECT_EQ(OTX_THROWN_KIND(encoded(0, bits, Encoding::Unsigned)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(encoded(0, 8, static_cast<Encoding>(2))), outOfBounds);
    EXPECT_EQ(OTX_THROWN_TEXT(encoded(256, 8, Encoding::Unsigned)), "Integer 256 does not fit into 8 bits");
}

TEST(IntegerCoding, DecodesEachEncoding) {
    EXPECT_EQ(decoded({0xFF}, Encoding::Unsigned), 255);
    EXPECT_EQ(decoded({0xFF}, Encoding::TwosComplement), -1);
    EXPECT_EQ(decoded({0xFF}, Encoding::SignedBinary), -127);
    EXPECT_EQ(decoded({0x80}, Encoding::SignedBinary), 0);
    EXPECT_EQ(decoded({0xFF}, Encoding::None), -1);
    EXPECT_EQ(decoded({0x12, 0x34, 0x56}, Encoding::Unsigned), 0x123456);
    EXPECT_EQ(decoded({0x12, 0x34, 0x56}, Encoding::Unsigned, Endianness::LittleEndian), 0x563412);
    EXPECT_EQ(decoded({0x00, 0x80}, Encoding::TwosComplement, Endianness::LittleEndian), -32768);
    EXPECT_EQ(decoded({0x80, 0, 0, 0, 0, 0, 0, 0}, Encoding::TwosComplement), smallest);
    EXPECT_EQ(COtxInt(Bytes{0x1A, 0xBC}, 12, Encoding::Unsigned, Endianness::BigEndian, COtxInt::Hexadecimal).Int(),
              0xABC);
    EXPECT_EQ(
        COtxInt(Bytes{0x1A, 0xBC}, 12, Encoding::TwosComplement, Endianness::BigEndian, COtxInt::Hexadecimal).Int(),
        0xABC - 0x1000);
}

TEST(IntegerCoding, DecodesWiderFieldsAsLongAsTheNumberFits) {
    EXPECT_EQ(decoded({0, 0x7F, 255, 255, 255, 255, 255, 255, 255}, Encoding::Unsigned), largest);
    EXPECT_EQ(decoded({255, 0x80, 0, 0, 0, 0, 0, 0, 0}, Encoding::TwosComplement), smallest);
    EXPECT_EQ(decoded({0x80, 0x80, 0, 0, 0, 0, 0, 0, 0}, Encoding::SignedBinary), smallest);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0x80, 0, 0, 0, 0, 0, 0, 0}, Encoding::Unsigned)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({1, 0, 0, 0, 0, 0, 0, 0, 0}, Encoding::Unsigned)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({255, 0x7F, 255, 255, 255, 255, 255, 255, 255}, Encoding::TwosComplement)),
              outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0, 0x80, 0, 0, 0, 0, 0, 0, 0}, Encoding::TwosComplement)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({0x80, 0x80, 0, 0, 0, 0, 0, 0, 1}, Encoding::SignedBinary)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(decoded({}, Encoding::Unsigned)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(COtxInt(Bytes{1}, 9, Encoding::Unsigned, Endianness::BigEndian, COtxInt::Decimal)),
              outOfBounds);
}

TEST(IntegerCoding, ReadsBackWhatItWrites) {
    for (const auto encoding : {Encoding::Unsigned, Encoding::SignedBinary, Encoding::TwosComplement}) {
        for (const auto order : {Endianness::LittleEndian, Endianness::BigEndian}) {
            for (const int bits : {8, 16, 32, 64}) {
                for (const long long value : {0LL, 1LL, 100LL, -1LL, -100LL}) {
                    if (value < 0 && encoding == Encoding::Unsigned) continue;
                    const COtxByteField written(value, bits, encoding, order);
                    EXPECT_EQ(decoded(written.ByteField(), encoding, order), value);
                }
            }
        }
    }
}

TEST(IntegerCoding, DecodedIntegersKeepTheirRadix) {
    const COtxInt value(Bytes{1}, 8, Encoding::Unsigned, Endianness::BigEndian, COtxInt::Hexadecimal);
    EXPECT_EQ(static_cast<const COtxIntBehaviour&>(*value.GetBehaviourReference()).Radix(), 3);
}
