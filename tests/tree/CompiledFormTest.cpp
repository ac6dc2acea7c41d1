// The compiled form from inside: the same tree, the same bytes, broken files refused.
#include "Documents.h"

#include <schema/Registry.h>

#include <gtest/gtest.h>

namespace tree_tests {
namespace {

const std::string sample = document(
    R"(<action id="a" name="first"><realisation xsi:type="Assignment" validFor="flag">
        <result xsi:type="ListVariable" name="r"><path>
            <stepByIndex xsi:type="IntegerLiteral" value="-1"/><stepByName xsi:type="StringLiteral" value="k"/>
        </path></result>
        <term xsi:type="EncodeInteger" byteOrder="BIG-ENDIAN"><integer xsi:type="IntegerLiteral" value="258"/></term>
    </realisation></action>
    <action id="b"><realisation xsi:type="Assignment"><result xsi:type="FloatVariable" name="f"/>
        <term xsi:type="FloatLiteral" value="1.5"/></realisation></action>
    <throw id="t"><realisation xsi:type="UserExceptionCreate"><qualifier xsi:type="StringLiteral" value="q"/>
        <text xsi:type="StringLiteral" value=""/></realisation></throw>)",
    R"(<declarations><variable id="v" name="b"><realisation><dataType xsi:type="ByteField"><init value="00FF"/></dataType>
       </realisation></variable></declarations>)");

TEST(CompiledForm, XmlToBytesToTreeGivesTheSameBytes) {
    const std::string bytes = compiled(*load(sample));
    EXPECT_EQ(compiled(*fromCompiled(bytes)), bytes);
}

TEST(CompiledForm, TheFirstByteIsThePresentFlagOfTheSpecification) {
    const std::string bytes = compiled(*load(sample));
    // No specification, no metaData, two bytes of padding, then the length of "o" with its end.
    EXPECT_EQ(bytes.substr(0, 10), std::string("\0\0\0\0\2\0\0\0o\0", 10));
}

TEST(CompiledForm, ATypeNameStandsInTheFileOnce) {
    const std::string bytes = compiled(*load(sample));
    const std::string space = "http://iso.org/OTX/1.0.0";
    EXPECT_NE(bytes.find(space), std::string::npos);
    EXPECT_EQ(bytes.find(space, bytes.find(space) + 1), std::string::npos);
}

TEST(CompiledForm, TheOrderOfAPathSurvives) {
    const auto tree = fromCompiled(compiled(*load(sample)));
    const auto& made = dynamic_cast<const otxns::Assignment&>(realisationOf(flowOf(*tree).blockBegin().front()));
    const auto& order = made.result().path()->order();
    ASSERT_EQ(order.size(), 2U);
    EXPECT_EQ(order[0].id, 2U);
    EXPECT_EQ(order[1].id, 1U);
    EXPECT_EQ(made.validFor()->key(), otxns::Name("flag"));
}

TEST(CompiledForm, EveryTruncationIsRefused) {
    const std::string bytes = compiled(*load(sample));
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_THROW(fromCompiled(bytes.substr(0, size)), std::exception) << size;
}

TEST(CompiledForm, EveryOtherByteLoadsOrIsRefusedButNeverCrashes) {
    const std::string bytes = compiled(*load(sample));
    std::size_t refused = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at)
        for (const int value : {0x00, 0x01, 0x7f, 0x80, 0xff}) {
            std::string changed = bytes;
            changed[at] = static_cast<char>(value);
            try {
                fromCompiled(changed);
            } catch (const std::exception&) {
                ++refused;
            }
        }
    EXPECT_GT(refused, bytes.size());
}

}  // namespace
}  // namespace tree_tests
