// How numbers that terms make are meant to be shown.
#include <OTXContext/OtxContext.h>

#include <otx/value/COtxInt.h>
#include <otx/value/COtxValueBehaviour.h>

#include <gtest/gtest.h>

#include "Documents.h"

#include <string>

namespace {

using namespace tree_tests;

COtxValue valueOf(const std::string& term) {
    const auto tree = load(document("<action id=\"a\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"IntegerVariable\" "
                                    "name=\"r\"/><term xsi:type=" + term + "</term></realisation></action>"));
    const auto& realisation = realisationOf(flowOf(*tree).blockBegin().front());
    otxns::OtxContext context;
    return dynamic_cast<const otxns::Assignment&>(realisation).term().eval(context);
}

COtxInt::Radix radixOf(const std::string& term) {
    const COtxValue value = valueOf(term);
    return dynamic_cast<const COtxIntBehaviour&>(*value.GetBehaviourReference()).Radix();
}

const std::string bytes = R"(><bytes xsi:type="ByteFieldLiteral" value="0102"/>)";

TEST(Numbers, AreDecimalUnlessTheyAreReadFromBytes) {
    EXPECT_EQ(radixOf(R"("IntegerLiteral" value="5">)"), COtxInt::Decimal);
    EXPECT_EQ(radixOf(R"("ByteFieldGetSize"><byteField xsi:type="ByteFieldLiteral" value="0102"/>)"), COtxInt::Decimal);
    EXPECT_EQ(radixOf(R"("ListGetLength"><list xsi:type="ListLiteral"><itemType xsi:type="Integer"/></list>)"),
              COtxInt::Decimal);
    EXPECT_EQ(radixOf("\"DecodeInteger\"" + bytes), COtxInt::Hexadecimal);
    EXPECT_EQ(static_cast<int>(COtxInt::Decimal), 2);
    EXPECT_EQ(static_cast<int>(COtxInt::Hexadecimal), 3);
}

TEST(Numbers, HaveThePrecisionOfSixteenDigits) {
    EXPECT_EQ(valueOf(R"("FloatLiteral" value="0.1">)").GetBehaviourReference()->Precision(), 16);
}

}  // namespace
