// What no text shows of the values that terms and data types give: radix, precision, the steps of odd paths.
#include "Documents.h"

#include <OTXContext/OtxContext.h>
#include <otx/value/COtxInt.h>
#include <otx/value/IString.h>

#include <gtest/gtest.h>

namespace tree_tests {
namespace {

COtxValue initialValue(const std::string& dataType) {
    const auto model = load(document("", "<declarations><variable id=\"v\" name=\"v\"><realisation>" + dataType +
                                             "</realisation></variable></declarations>"));
    const auto& variable = model->procedures()->procedure().front().realisation()->declarations()->variable().front();
    otxns::OtxContext context;
    return variable.realisation()->dataType().eval(context);
}

COtxValue valueOf(const std::string& term) {
    const auto model = load(document("<action id=\"a\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"IntegerVariable\""
                                     " name=\"r\"/>" + term + "</realisation></action>"));
    otxns::OtxContext context;
    return dynamic_cast<const otxns::Assignment&>(realisationOf(flowOf(*model).blockBegin().front())).term().eval(context);
}

int radixOf(const COtxValue& integer) {
    return dynamic_cast<const COtxIntBehaviour&>(*integer.GetBehaviourReference()).Radix();
}

int precisionOf(const COtxValue& number) { return number.GetBehaviourReference()->Precision(); }

TEST(ValueForm, IntegersAreDecimalButForDecodedOnes) {
    EXPECT_EQ(radixOf(initialValue(R"(<dataType xsi:type="Integer"/>)")), COtxInt::Decimal);
    EXPECT_EQ(radixOf(valueOf(R"(<term xsi:type="IntegerLiteral" value="1"/>)")), COtxInt::Decimal);
    EXPECT_EQ(radixOf(valueOf(R"(<term xsi:type="DecodeInteger"><bytes xsi:type="ByteFieldLiteral" value="01"/></term>)")),
              COtxInt::Hexadecimal);
}

TEST(ValueForm, FloatsHaveAPrecisionOf16) {
    EXPECT_EQ(precisionOf(initialValue(R"(<dataType xsi:type="Float"/>)")), 16);
    EXPECT_EQ(precisionOf(valueOf(R"(<term xsi:type="FloatLiteral" value="1"/>)")), 16);
}

TEST(ValueForm, AStepOfAnUnknownKindIsTheOneBeforeIt) {
    auto tree = load(document(R"(<action id="a"><realisation xsi:type="Assignment">
        <result xsi:type="ListVariable" name="r"><path>
            <stepByIndex xsi:type="IntegerLiteral" value="5"/>
            <stepByName xsi:type="StringLiteral" value="k"/>
            <stepByIndex xsi:type="IntegerLiteral" value="7"/>
        </path></result>
        <term xsi:type="IntegerLiteral" value="1"/>
    </realisation></action>)"));
    const auto pathOf = [](const otxns::Otx& document) -> const otxns::Path& {
        return *dynamic_cast<const otxns::Assignment&>(realisationOf(flowOf(document).blockBegin().front())).result().path();
    };
    auto& order = *otxns::Path_base::table().order(const_cast<otxns::Path&>(pathOf(*tree)));
    order[1].id = 9;
    // No document has such a step; a compiled file may.
    tree = fromCompiled(compiled(*tree));
    otxns::OtxContext context;
    EXPECT_EQ(std::string(pathOf(*tree).steps(context).ToString().String()), "[5,5,7]");
}

}  // namespace
}  // namespace tree_tests
