// Arithmetic of quantities.
#include <limits>

#include "Quantities.h"

using namespace tests;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

COtxQuantity q(double number, const char* unit) { return quantity(number, unit); }

}  // namespace

TEST(QuantityArithmetic, SumsAreInTheLeftUnit) {
    EXPECT_EQ(shown(q(1, "km") + q(500, "m")), "1.5 km");
    EXPECT_EQ(shown(q(500, "m") + q(1, "km")), "1500.0 m");
    EXPECT_EQ(shown(q(1, "h") - q(15, "min")), "0.75 h");
    EXPECT_EQ(shown(q(1, "bar") + q(50, "kPa")), "1.5 bar");
    EXPECT_EQ(shown(q(1, "rpm") + q(1, "1/min")), "2.0 rpm");
    EXPECT_EQ(shown(q(1, "V") + q(2, "V")), "3.0 V");
    EXPECT_EQ(shown(q(7, "V") % q(2000, "mV")), "1.0 V");
    EXPECT_EQ(shown(q(-7, "V") % q(2, "V")), "-1.0 V");
    EXPECT_EQ((quantity(1, "km", 3) + quantity(1, "m", 5)).Quantity().GetPrecision(), 3);
}

TEST(QuantityArithmetic, SumsNeedOneDimension) {
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") + q(1, "A")), invalidConversion);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") - q(1, "A")), invalidConversion);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") % q(1, "A")), invalidConversion);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") + q(1, "")), invalidConversion);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") + COtxFloat(1)), invalidConversion);
    EXPECT_EQ(OTX_THROWN_KIND(COtxInt(1) - q(1, "V")), invalidConversion);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") + q(1, "widget")), unknownUnit);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "widget") + q(1, "V")), unknownUnit);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "widget") + COtxInt(1)), unknownUnit);
}

TEST(QuantityArithmetic, UnknownUnitsOfOneNameAddUp) {
    EXPECT_EQ(shown(q(1, "widget") + q(2, "widget")), "3.0 widget");
    EXPECT_EQ(shown(q(5, "widget") % q(3, "widget")), "2.0 widget");
    EXPECT_EQ(shown(q(6, "widget") / q(3, "widget")), "2.0");
    EXPECT_EQ(shown(q(6, "widget") * COtxInt(3)), "18.0 widget");
    EXPECT_EQ(shown(COtxInt(3) * q(6, "widget")), "18.0 widget");
    EXPECT_EQ(shown(q(6, "widget") / COtxInt(3)), "2.0 widget");
    EXPECT_EQ(OTX_THROWN_KIND(COtxInt(6) / q(3, "widget")), unknownUnit);
    EXPECT_EQ(OTX_THROWN_KIND(q(6, "widget") * q(3, "widget")), unknownUnit);
    EXPECT_EQ(OTX_THROWN_KIND(q(6, "widget") / q(3, "s")), unknownUnit);
    EXPECT_EQ(OTX_THROWN_KIND(q(6, "s") * q(3, "widget")), unknownUnit);
}

TEST(QuantityArithmetic, NumbersAreQuantitiesWithTheEmptyUnit) {
    EXPECT_EQ(shown(q(1, "") + COtxInt(2)), "3.0");
    EXPECT_EQ(shown(COtxInt(2) + q(50, "%")), "2.5");
    EXPECT_EQ(shown(q(50, "%") + COtxFloat(0.25)), "75.0 %");
    EXPECT_EQ((COtxInt(2) + q(1, "")).Type(), OTX::ValueType::Quantity);
    EXPECT_EQ((COtxFloat(2, 5) * quantity(1, "V", 3)).Quantity().GetPrecision(), 3);
    EXPECT_EQ((COtxFloat(2, 5) + quantity(1, "", 3)).Quantity().GetPrecision(), 3);
    EXPECT_EQ((quantity(1, "V", 3) * COtxFloat(2, 5)).Quantity().GetPrecision(), 3);
    EXPECT_EQ(shown(COtxLogLevel(COtxLogLevel::Trace) * q(2, "V")), "2.0 V");
    EXPECT_EQ(shown(q(2, "V") * COtxLogLevel(COtxLogLevel::Trace)), "2.0 V");
}

TEST(QuantityArithmetic, KelvinsAreDifferencesNextToOtherTemperatures) {
    EXPECT_EQ(shown(q(20, "degC") + q(5, "K")), "25.0 degC");
    EXPECT_EQ(shown(q(20, "degC") - q(5, "K")), "15.0 degC");
    EXPECT_EQ(shown(q(68, "degF") + q(5, "K")), "77.0 degF");
    EXPECT_EQ(shown(q(20, "degC") + q(9, "degR")), "25.0 degC");
    EXPECT_EQ(shown(q(25, "degC") - q(20, "degC")), "5.0 degC");
    EXPECT_EQ(shown(q(25, "degC") - q(68, "degF")), "5.0 degC");
    EXPECT_NEAR(number(q(300, "K") - q(26, "degC")), 0.85, 1e-12);
    EXPECT_EQ(unit(q(300, "K") - q(26, "degC")), "K");
    EXPECT_EQ(shown(q(300, "K") + q(5, "K")), "305.0 K");
    EXPECT_EQ(shown(q(20, "degC") * COtxInt(2)), "40.0 degC");
    EXPECT_EQ(shown(q(20, "degC") / q(4, "min")), "5.0 degC/min");
    EXPECT_EQ(number(COtxQuantity(q(20, "degC") / q(4, "min"), COtxUnit("K/min"), 16)), 5.0);
}

TEST(QuantityArithmetic, ProductsBuildTheUnit) {
    EXPECT_EQ(shown(q(12, "V") * q(2, "A")), "24.0 V.A");
    EXPECT_EQ(shown(q(12, "V") / q(2, "A")), "6.0 V/A");
    EXPECT_EQ(shown(q(3, "m") * q(2, "m")), "6.0 m2");
    EXPECT_EQ(shown(q(3, "m") / q(2, "s") / q(1, "s")), "1.5 m/s2");
    EXPECT_EQ(shown(q(6, "m") / q(2, "m")), "3.0");
    EXPECT_EQ(shown(COtxInt(1) / q(4, "s")), "0.25 1/s");
    EXPECT_EQ(shown(COtxInt(2) / q(4, "1/s")), "0.5 s");
    EXPECT_EQ(shown(q(2, "V") * COtxInt(3)), "6.0 V");
    EXPECT_EQ(shown(COtxFloat(1.5) * q(2, "V")), "3.0 V");
    EXPECT_EQ(shown(q(2, "V") * q(3, "")), "6.0 V");
    EXPECT_EQ(shown(q(3, "") / q(2, "V")), "1.5 1/V");
    EXPECT_EQ(shown(q(100, "W") / q(2, "m2") / q(5, "K")), "10.0 W/(m2.K)");
    EXPECT_EQ(shown(q(10, "W/(m2.K)") * q(2, "m2")), "20.0 W/K");
}

TEST(QuantityArithmetic, ProductsExpressAlikeFactorsByOneUnit) {
    EXPECT_EQ(shown(q(72, "km/h") * q(10, "s")), "0.2 km");
    EXPECT_EQ(shown(q(5, "km") / q(100, "m")), "50.0");
    EXPECT_EQ(shown(q(2, "km") * q(500, "m")), "1.0 km2");
    EXPECT_EQ(shown(q(60, "mph") * q(30, "min")), "30.0 mi");
    EXPECT_EQ(shown(q(3000, "rpm") * q(1, "s")), "50.0");
    EXPECT_EQ(shown(q(50, "Hz") * q(2, "s")), "100.0");
    EXPECT_EQ(shown(q(10, "kWh") / q(2, "h")), "5.0 kW");
    EXPECT_EQ(shown(q(50, "%") * q(4, "V")), "2.0 V");
    EXPECT_EQ(shown(q(4, "V") / q(50, "%")), "8.0 V");
    EXPECT_EQ(shown(q(50, "%") * q(50, "%")), "0.25");
    EXPECT_EQ(shown(q(50, "%") * COtxInt(2)), "100.0 %");
    EXPECT_EQ(shown(q(5, "l/100km") * q(200, "km")), "10.0 l");
    EXPECT_EQ(shown(q(2, "Ω") * q(3, "A")), "6.0 Ohm.A");
}

// What is built can be read again, and measures the same.
TEST(QuantityArithmetic, BuiltUnitsAreUnits) {
    const char* const units[] = {"km/h",     "V",       "mA", "Nm",    "1/min", "kWh",
                                 "W/(m2.K)", "l/100km", "%",  "deg/s", "degC",  ""};
    for (const char* const left : units) {
        for (const char* const right : units) {
            SCOPED_TRACE(std::string(left) + " and " + right);
            const COtxValue product = q(6, left) * q(3, right);
            const COtxValue back = product / q(3, right);
            EXPECT_NO_THROW(product.Quantity().GetBaseUnit());
            // Temperatures in products are differences.
            if (std::string(left) == "degC") continue;
            EXPECT_TRUE(back == q(6, left)) << shown(back);
        }
    }
}

TEST(QuantityArithmetic, FailsAsFloatsDo) {
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") / q(0, "A")), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") / COtxInt(0)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(COtxInt(1) / q(0, "A")), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") % q(0, "V")), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(q(1e308, "V") + q(1e308, "V")), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(q(1e308, "V") * q(1e308, "A")), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(q(1e306, "1/s") * q(1, "Ts")), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(q(infinity, "V") * COtxInt(2)), arithmetic);
}

TEST(QuantityArithmetic, RefusesOtherTypes) {
    EXPECT_EQ(OTX_THROWN_TEXT(q(1, "V") + COtxString("1")),
              "Operation Add is not supported by types Quantity and String");
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") * COtxBool(true)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") / COtxValue()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") % COtxUnit("V")), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(q(1, "V") - COtxList()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_TEXT(COtxString("1") + q(1, "V")),
              "Operation Add is not supported by types String and Quantity");
    EXPECT_EQ(OTX_THROWN_TEXT(COtxInt(1) + COtxString("1")),
              "Operation Add is not supported by types Integer and String");
    EXPECT_EQ(OTX_THROWN_TEXT(COtxFloat(1) * COtxBool(true)),
              "Operation Multiply is not supported by types Float and Boolean");
}

TEST(QuantityArithmetic, AbsKeepsUnitAndPrecision) {
    const COtxValue absolute = quantity(-2.5, "V", 3).Abs();
    EXPECT_EQ(shown(absolute), "2.5 V");
    EXPECT_EQ(absolute.Quantity().GetPrecision(), 3);
    EXPECT_EQ(shown(q(-2.5, "degC").Abs()), "2.5 degC");
    EXPECT_EQ(OTX_THROWN_KIND(q(-infinity, "V").Abs()), arithmetic);
}

TEST(QuantityArithmetic, PowersEndAt99) {
    COtxValue power = q(1, "m");
    for (int i = 2; i <= 99; ++i) power = power * q(1, "m");
    EXPECT_EQ(shown(power), "1.0 m99");
    EXPECT_EQ(OTX_THROWN_KIND(power * q(1, "m")), quantityException);
    EXPECT_EQ(OTX_THROWN_KIND(COtxInt(1) / power / q(1, "m")), quantityException);
}

TEST(QuantityArithmetic, FactorsEndAt16) {
    const COtxValue full = q(1, "m.kg.s.A.K.mol.cd.rad.V.N.Pa.J.W.C.F.Wb");
    EXPECT_EQ(shown(full * q(1, "m")), "1.0 m2.kg.s.A.K.mol.cd.rad.V.N.Pa.J.W.C.F.Wb");
    EXPECT_EQ(OTX_THROWN_KIND(full * q(1, "T")), quantityException);
}
