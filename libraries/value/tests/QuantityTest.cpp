// Quantities and units: what they hold. Arithmetic with them is refused until there is a table of units.
#include "Thrown.h"

namespace {

using tests::typeMismatch;

}  // namespace

TEST(Quantity, HoldsNumberUnitAndPrecision) {
    const COtxQuantity quantity(12.5, COtxUnit("V"), 3);
    EXPECT_EQ(quantity.Quantity().GetDisplayValue().Float(), 12.5);
    EXPECT_EQ(quantity.Quantity().GetDisplayUnit().Unit().Name(), "V");
    EXPECT_EQ(quantity.Quantity().GetPrecision(), 3);
    EXPECT_EQ(quantity.Precision(), 3);
    EXPECT_EQ(quantity.ToFloat().Float(), 12.5);
    EXPECT_EQ(quantity.ToInteger().Int(), 12);
    EXPECT_TRUE(quantity.ToBoolean().Bool());
}

TEST(Quantity, IsMadeOfNumbersAndQuantities) {
    EXPECT_EQ(COtxQuantity(COtxInt(2), COtxUnit("V"), 16).ToString().String(), "2.0 V");
    EXPECT_EQ(COtxQuantity(COtxFloat(2.5), COtxUnit("V"), 16).ToString().String(), "2.5 V");
    const COtxQuantity old(2.5, COtxUnit("V"), 3);
    const COtxQuantity made(old, COtxUnit("A"), 5);
    EXPECT_EQ(made.ToString().String(), "2.5 A");
    EXPECT_EQ(made.Quantity().GetPrecision(), 5);
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(COtxString("2"), COtxUnit("V"), 16)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(2.0, COtxString("V"), 16)), typeMismatch);
}

TEST(Quantity, RefusesWhatNeedsATableOfUnits) {
    const COtxQuantity quantity(12.5, COtxUnit("V"), 3);
    EXPECT_EQ(OTX_THROWN_KIND(quantity.Quantity().GetBaseUnit()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(quantity.Quantity().Localize()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(quantity.Quantity().Localize("group")), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(quantity + COtxInt(1)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(COtxInt(1) + quantity), typeMismatch);
}

TEST(Unit, IsItsName) {
    EXPECT_EQ(COtxUnit("km").Unit().Name(), "km");
    EXPECT_EQ(COtxUnit().Unit().Name(), "");
    EXPECT_TRUE(COtxUnit("V") == COtxUnit("V"));
    EXPECT_FALSE(COtxUnit("V") == COtxString("V"));
}
