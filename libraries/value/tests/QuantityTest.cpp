// Quantities: what they hold, their text, conversion, base units and unit groups.
#include <limits>

#include "Quantities.h"

using namespace tests;

TEST(Quantity, HoldsNumberUnitAndPrecision) {
    const COtxQuantity quantity(12.5, COtxUnit("V"), 3);
    EXPECT_EQ(quantity.Quantity().GetDisplayValue().Float(), 12.5);
    EXPECT_EQ(quantity.Quantity().GetDisplayValue().Precision(), 3);
    EXPECT_EQ(quantity.Quantity().GetDisplayUnit().Unit().Name(), "V");
    EXPECT_EQ(quantity.Quantity().GetPrecision(), 3);
    EXPECT_EQ(quantity.Precision(), 3);
    EXPECT_EQ(quantity.ToFloat().Float(), 12.5);
    EXPECT_EQ(quantity.ToInteger().Int(), 12);
    EXPECT_TRUE(quantity.ToBoolean().Bool());
}

TEST(Quantity, IsMadeOfNumbers) {
    EXPECT_EQ(COtxQuantity(COtxInt(2), COtxUnit("V"), 16).ToString().String(), "2.0 V");
    EXPECT_EQ(COtxQuantity(COtxFloat(2.5), COtxUnit("V"), 16).ToString().String(), "2.5 V");
    EXPECT_EQ(COtxQuantity(COtxLogLevel(COtxLogLevel::Trace), COtxUnit("V"), 16).ToString().String(), "1.0 V");
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(COtxString("2"), COtxUnit("V"), 16)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(COtxBool(true), COtxUnit("V"), 16)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(COtxValue(), COtxUnit("V"), 16)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(2.0, COtxString("V"), 16)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(2.0, COtxValue(), 16)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(COtxQuantity(COtxInt(2), COtxString("V"), 16)), typeMismatch);
}

TEST(Quantity, MadeOfAQuantityIsConverted) {
    const COtxQuantity speed(72.0, COtxUnit("km/h"), 3);
    const COtxQuantity made(speed, COtxUnit("m/s"), 5);
    EXPECT_EQ(number(made), 20.0);
    EXPECT_EQ(unit(made), "m/s");
    EXPECT_EQ(made.Quantity().GetPrecision(), 5);
    EXPECT_EQ(converted(20, "degC", "degF"), 68.0);
    EXPECT_EQ(converted(-40, "degF", "°C"), -40.0);
    EXPECT_EQ(converted(98.6, "degF", "degC"), 37.0);
    EXPECT_EQ(converted(0, "degC", "K"), 273.15);
    EXPECT_EQ(converted(491.67, "degR", "degC"), 0.0);
    EXPECT_EQ(converted(3000, "rpm", "1/min"), 3000.0);
    EXPECT_EQ(converted(3000, "1/min", "Hz"), 50.0);
    EXPECT_EQ(converted(1, "bar", "kPa"), 100.0);
    EXPECT_EQ(converted(1, "mph", "km/h"), 1.609344);
    EXPECT_EQ(converted(180, "deg/s", "rad/s"), 3.14159265358979323846);
    EXPECT_EQ(converted(8, "l/100km", "l/km"), 0.08);
    EXPECT_EQ(converted(500, "kbit/s", "kB/s"), 62.5);
    EXPECT_EQ(converted(50, "%", "1"), 0.5);
    EXPECT_EQ(OTX_THROWN_KIND(converted(1, "V", "A")), invalidConversion);
    EXPECT_EQ(OTX_THROWN_TEXT(converted(1, "V", "A")), "Unit \"V\" can't be converted to unit \"A\"");
    EXPECT_EQ(OTX_THROWN_KIND(converted(1, "rpm", "rad/s")), invalidConversion);
    EXPECT_EQ(OTX_THROWN_KIND(converted(1, "widget", "A")), unknownUnit);
    EXPECT_EQ(OTX_THROWN_KIND(converted(1, "A", "widget")), unknownUnit);
    EXPECT_EQ(OTX_THROWN_TEXT(converted(1, "A", "widget")), "Unit \"widget\" is unknown");
    EXPECT_EQ(OTX_THROWN_KIND(converted(1e308, "km", "mm")), arithmetic);
}

TEST(Quantity, KeepsItsNumberWhereAUnitIsEmptyOrTheSame) {
    EXPECT_EQ(converted(5, "", "V"), 5.0);
    EXPECT_EQ(converted(5, "", "%"), 5.0);
    EXPECT_EQ(converted(5, "V", ""), 5.0);
    EXPECT_EQ(converted(5, "", "widget"), 5.0);
    EXPECT_EQ(converted(5, "widget", ""), 5.0);
    EXPECT_EQ(converted(5, "widget", "widget"), 5.0);
}

TEST(Quantity, TextShowsItsPrecisionAndJsonAllDigits) {
    const auto text = [](double number, int precision) {
        return std::string(COtxQuantity(number, COtxUnit("V"), precision).ToString().String());
    };
    EXPECT_EQ(text(12.3456, 3), "12.3 V");
    EXPECT_EQ(text(12.35, 16), "12.35 V");
    EXPECT_EQ(text(1234.5, 3), "1230.0 V");
    EXPECT_EQ(text(-0.00012345, 2), "-0.00012 V");
    EXPECT_EQ(text(9.99, 2), "10.0 V");
    EXPECT_EQ(text(0.1 + 0.2, 16), "0.3 V");
    EXPECT_EQ(text(0.1 + 0.2, 17), "0.30000000000000004 V");
    EXPECT_EQ(text(12.3456, 0), "12.3456 V");
    EXPECT_EQ(text(12.3456, -1), "12.3456 V");
    EXPECT_EQ(text(std::numeric_limits<double>::max(), 1), "1.7976931348623157e+308 V");
    EXPECT_EQ(text(std::numeric_limits<double>::infinity(), 3), "INF V");
    const COtxQuantity quantity(12.3456, COtxUnit("V"), 3);
    EXPECT_EQ(json(quantity), R"("12.3456 V")");
    EXPECT_EQ(otxJson(quantity), R"({"Quantity":{"precision":3,"unit":"V","value":12.3456}})");
    EXPECT_STREQ(quantity.what(), "12.3 V");
    EXPECT_EQ(streamed(quantity), "12.3 V");
    EXPECT_EQ(quantity.ToFloat().Float(), 12.3456);
}

TEST(Quantity, BaseUnitIsTheCoherentOneFactorByFactor) {
    const auto base = [](const std::string& name) { return unitOf(quantity(1, name).Quantity().GetBaseUnit()); };
    EXPECT_EQ(base(""), "");
    EXPECT_EQ(base("V"), "V");
    EXPECT_EQ(base("mV"), "V");
    EXPECT_EQ(base("km/h"), "m/s");
    EXPECT_EQ(base("degC"), "K");
    EXPECT_EQ(base("°F"), "K");
    EXPECT_EQ(base("1/min"), "1/s");
    EXPECT_EQ(base("rpm"), "1/s");
    EXPECT_EQ(base("kg"), "kg");
    EXPECT_EQ(base("g"), "kg");
    EXPECT_EQ(base("bar"), "Pa");
    EXPECT_EQ(base("Nm"), "N.m");
    EXPECT_EQ(base("kWh"), "W.s");
    EXPECT_EQ(base("Ah"), "A.s");
    EXPECT_EQ(base("l"), "m3");
    EXPECT_EQ(base("kn"), "m/s");
    EXPECT_EQ(base("gn"), "m/s2");
    EXPECT_EQ(base("klx"), "lx");
    EXPECT_EQ(base("deg/s"), "rad/s");
    EXPECT_EQ(base("%"), "");
    EXPECT_EQ(base("mg/stroke"), "kg");
    EXPECT_EQ(base("kbit/s"), "bit/s");
    EXPECT_EQ(base("l/100km"), "m2");
    EXPECT_EQ(OTX_THROWN_KIND(base("widget")), unknownUnit);
}

TEST(Quantity, LocalizesToTheGroup) {
    const auto imperial = [](double value, const std::string& name) {
        return localized(quantity(value, name), "imperial");
    };
    EXPECT_EQ(imperial(100, "km/h"), "62.1371 mph");
    EXPECT_EQ(imperial(20, "degC"), "68.0 degF");
    EXPECT_EQ(imperial(20, "°C"), "68.0 degF");
    EXPECT_EQ(imperial(1, "km"), "0.621371 mi");
    EXPECT_EQ(imperial(1, "m"), "3.28084 ft");
    EXPECT_EQ(imperial(25.4, "mm"), "1.0 in");
    EXPECT_EQ(imperial(1, "m2"), "10.7639 ft2");
    EXPECT_EQ(imperial(10, "l"), "2.64172 gal");
    EXPECT_EQ(imperial(2, "bar"), "29.0075 psi");
    EXPECT_EQ(imperial(100, "kPa"), "14.5038 psi");
    EXPECT_EQ(imperial(1, "kg"), "2.20462 lb");
    EXPECT_EQ(imperial(100, "Nm"), "73.7562 lbf.ft");
    EXPECT_EQ(imperial(100, "N.m"), "73.7562 lbf.ft");
    EXPECT_EQ(imperial(100, "kW"), "134.102 hp");
    EXPECT_EQ(imperial(8, "l/100km"), "3.40115 gal/100mi");
    EXPECT_EQ(imperial(10, "km/l"), "23.5215 mpg");
    EXPECT_EQ(imperial(100, "g/km"), "160.934 g/mi");
    // No equivalent, or the group's own already.
    EXPECT_EQ(imperial(12, "V"), "12.0 V");
    EXPECT_EQ(imperial(1, "kWh"), "1.0 kWh");
    EXPECT_EQ(imperial(60, "mph"), "60.0 mph");
    EXPECT_EQ(imperial(3, "widget"), "3.0 widget");
    EXPECT_EQ(imperial(3, ""), "3.0");
    EXPECT_EQ(imperial(3000, "rpm"), "3000.0 rpm");
}

TEST(Quantity, LocalizesToMetricByDefault) {
    const auto metric = [](double value, const std::string& name) {
        const COtxQuantity local = quantity(value, name);
        EXPECT_EQ(otxJson(local.Quantity().Localize()), otxJson(local.Quantity().Localize("metric")));
        return localized(local, "metric");
    };
    EXPECT_EQ(metric(60, "mph"), "96.5606 km/h");
    EXPECT_EQ(metric(68, "degF"), "20.0 degC");
    EXPECT_EQ(metric(1, "mi"), "1.60934 km");
    EXPECT_EQ(metric(1, "ft"), "0.3048 m");
    EXPECT_EQ(metric(1, "in"), "25.4 mm");
    EXPECT_EQ(metric(1, "gal"), "3.78541 l");
    EXPECT_EQ(metric(30, "psi"), "2.06843 bar");
    EXPECT_EQ(metric(1, "lb"), "0.453592 kg");
    EXPECT_EQ(metric(100, "lbf.ft"), "135.582 Nm");
    EXPECT_EQ(metric(100, "lb-ft"), "135.582 Nm");
    EXPECT_EQ(metric(30, "mpg"), "12.7543 km/l");
    EXPECT_EQ(metric(3, "gal/100mi"), "7.05644 l/100km");
    EXPECT_EQ(metric(100, "km/h"), "100.0 km/h");
    EXPECT_EQ(metric(20, "°C"), "20.0 °C");
    EXPECT_EQ(metric(1, "widget"), "1.0 widget");
}

TEST(Quantity, LocalizesToNoOtherGroup) {
    EXPECT_EQ(OTX_THROWN_KIND(quantity(1, "km").Quantity().Localize("nautical")), quantityException);
    EXPECT_EQ(OTX_THROWN_KIND(quantity(1, "km").Quantity().Localize("")), quantityException);
    EXPECT_EQ(OTX_THROWN_KIND(quantity(1, "widget").Quantity().Localize("Metric")), quantityException);
    EXPECT_EQ(OTX_THROWN_TEXT(quantity(1, "km").Quantity().Localize("nautical")),
              "Unit group \"nautical\" is unknown, there are \"metric\" and \"imperial\"");
}

TEST(Quantity, KeepsItsPrecisionThroughLocalization) {
    EXPECT_EQ(COtxQuantity(1.0, COtxUnit("km"), 4).Quantity().Localize("imperial").Quantity().GetPrecision(), 4);
}

TEST(Unit, IsItsName) {
    EXPECT_EQ(COtxUnit("km").Unit().Name(), "km");
    EXPECT_EQ(COtxUnit().Unit().Name(), "");
    EXPECT_TRUE(COtxUnit("V") == COtxUnit("V"));
    EXPECT_FALSE(COtxUnit("V") == COtxString("V"));
    // Names, not sizes.
    EXPECT_FALSE(COtxUnit("°C") == COtxUnit("degC"));
    EXPECT_EQ(COtxUnit("any widget / at all").Unit().Name(), "any widget / at all");
}
