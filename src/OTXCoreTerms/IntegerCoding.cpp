// The terms that code integers in bytes.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <otx/value/COtxByteField.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxInt.h>
#include <otx/value/IByteField.h>

#include <array>

namespace otxns {

namespace {

// The enumerations of the document by the positions of their literals: LITTLE-ENDIAN, MIXED-ENDIAN, BIG-ENDIAN;
// UNSIGNED, SIGNED-BINARY, TWOS-COMPLEMENT; 8-BIT, 16-BIT, 32-BIT, 64-BIT.
constexpr int mixedEndian = 1;
constexpr int bigEndian = 2;
constexpr std::array encodings{OTX::Encoding::Unsigned, OTX::Encoding::SignedBinary, OTX::Encoding::TwosComplement};
constexpr std::array widths{8, 16, 32, 64};

template <class OptionalLiteral, class Table>
auto mapped(const OptionalLiteral& literal, const Table& table) {
    return literal.present() ? table.at(static_cast<std::size_t>(literal->number())) : table.back();
}

template <class OptionalLiteral>
OTX::Endianness byteOrderOf(const OptionalLiteral& literal) {
    const int number = literal.present() ? literal->number() : 0;
    // The underscore is meant.
    if (number == mixedEndian)
        throw COtxException(OTX::Exceptions_e::OutOfBoundsException, "MIXED_ENDIAN byte order is not supported");
    return number == bigEndian ? OTX::Endianness::BigEndian : OTX::Endianness::LittleEndian;
}

}  // namespace

// The bytes are evaluated ahead of the check of the byte order; the number of bytes is the width.
template <>
COtxValue DecodeInteger_impl<DecodeInteger_base>::eval(OtxContext& context) const {
    const COtxValue field = evaluate(bytes(), context);
    const OTX::Endianness order = byteOrderOf(byteOrder());
    const std::vector<unsigned char> content =
        lookInto(context, [&]() -> std::vector<unsigned char> { return field.ByteField(); });
    return COtxInt(content, static_cast<int>(content.size() * 8), mapped(encodingType(), encodings), order,
                   COtxInt::Hexadecimal);
}

// The byte order is checked before the integer is evaluated.
template <>
COtxValue EncodeInteger_impl<EncodeInteger_base>::eval(OtxContext& context) const {
    const OTX::Endianness order = byteOrderOf(byteOrder());
    const OTX::Encoding encoding = mapped(encodingType(), encodings);
    const int width = mapped(encodingSize(), widths);
    const long long number = evaluate(integer(), context).Int();
    return COtxByteField(number, width, encoding, order);
}

}  // namespace otxns
