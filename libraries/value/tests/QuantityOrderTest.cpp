// Equality and order of quantities.
#include <limits>

#include "Quantities.h"

using namespace tests;

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

COtxQuantity q(double number, const char* unit) { return quantity(number, unit); }

// Numbers, and quantities that are numbers.
std::vector<std::vector<COtxValue>> numbers() {
    return {
        {COtxFloat(nan), q(nan, ""), q(nan, "%")},
        {COtxInt(-1), q(-1, ""), q(-100, "%"), q(-1, "rev")},
        {COtxInt(0), q(0, ""), q(-0.0, "%"), q(0, "ppm")},
        {COtxFloat(0.3), q(30, "%"), q(0.3, ""), q(0.3, "1"), q(0.3, "-"), q(300, "m/km"), q(0.1 + 0.2, "1")},
        {COtxFloat(0.1 + 0.2), q(0.1 + 0.2, "")},
        {COtxFloat(0.5), q(0.5, ""), q(50, "%"), COtxQuantity(COtxFloat(50), COtxUnit("pct"), 2)},
        {COtxInt(1), COtxFloat(1), COtxLogLevel(COtxLogLevel::Trace), q(1, ""), q(100, "%"), q(1, "m/m")},
        {COtxInt(9007199254740992), q(9007199254740992.0, "")},
        {COtxInt(9007199254740993)},
        {COtxFloat(infinity), q(infinity, ""), q(infinity, "%")},
        {COtxString("a")},
        {q(-5, "V")},
    };
}

// The rows are in their order; those of one row are equal. All six operators are tried: with that, the order is
// strict and weak over all of them.
void expectOrder(const std::vector<std::vector<COtxValue>>& rows) {
    for (std::size_t left = 0; left < rows.size(); ++left) {
        for (std::size_t right = 0; right < rows.size(); ++right) {
            for (const COtxValue& first : rows[left]) {
                for (const COtxValue& second : rows[right]) {
                    SCOPED_TRACE(streamed(first) + " and " + streamed(second));
                    EXPECT_EQ(first == second, left == right);
                    EXPECT_EQ(first != second, left != right);
                    EXPECT_EQ(first < second, left < right);
                    EXPECT_EQ(first <= second, left <= right);
                    EXPECT_EQ(first > second, left > right);
                    EXPECT_EQ(first >= second, left >= right);
                }
            }
        }
    }
}

}  // namespace

TEST(QuantityOrder, QuantitiesWithoutDimensionAreNumbers) {
    expectOrder(numbers());
}

TEST(QuantityOrder, IsByValueInBaseUnits) {
    expectOrder({
        {q(nan, "m/s"), q(-nan, "km/h")},
        {q(-infinity, "m/s"), q(-infinity, "km/h")},
        {q(-36, "km/h"), q(-10, "m/s")},
        {q(0, "km/h"), q(-0.0, "m/s")},
        {q(1e-300, "m/s")},
        {q(0.36, "km/h"), q(0.1, "m/s")},
        {q(9.999999, "m/s")},
        {q(36, "km/h"), q(10, "m/s"), q(36000, "m/h"), q(36.000000000000007, "km/h")},
        {q(36.0000000001, "km/h")},
        {q(60, "mph"), q(96.56064, "km/h"), q(26.8224, "m/s")},
        {q(infinity, "m/s"), q(infinity, "km/h")},
    });
}

TEST(QuantityOrder, HoldsBeyondTheRangeOfDoubles) {
    expectOrder({
        {q(-infinity, "Ym"), q(-infinity, "m")},
        {q(-1e300, "Ym")},
        {q(-1e308, "m")},
        {q(0, "Ym")},
        {q(1e-320, "ym")},
        {q(1e-300, "ym"), q(1e-303, "zm")},
        {q(1e-300, "m")},
        {q(1e308, "m"), q(1e284, "Ym")},
        {q(1e300, "Ym"), q(1e303, "Zm")},
        {q(1.1e300, "Ym"), q(1.1e303, "Zm")},
        {q(infinity, "m")},
    });
}

TEST(QuantityOrder, TemperaturesCompareAbsolutely) {
    expectOrder({
        {q(0, "K"), q(-273.15, "degC"), q(-459.67, "°F"), q(0, "degR")},
        {q(-40, "degC"), q(-40, "degF")},
        {q(0, "degC"), q(32, "degF"), q(273.15, "K"), q(1e-20, "degC"), q(2e-20, "degC")},
        {q(20, "degC"), q(68, "degF"), q(293.15, "K")},
    });
}

TEST(QuantityOrder, GoesDimensionByDimensionAndUnknownUnitsLast) {
    expectOrder({
        {q(5, "K"), q(-268.15, "degC")},
        {q(1, "A"), q(1000, "mA")},
        {q(2, "A")},
        {q(-5, "kg")},
        {q(1, "V")},
        {q(1.1, "V"), q(1100, "mV")},
        {q(5, "gadget")},
        {q(0.1 + 0.2, "widget")},
        {q(1, "widget")},
        {q(0.5, "zidget")},
    });
}

TEST(QuantityOrder, UnknownUnitsCompareExactly) {
    EXPECT_FALSE(q(0.1 + 0.2, "widget") == q(0.3, "widget"));
    EXPECT_TRUE(q(0.3, "widget") < q(0.1 + 0.2, "widget"));
    EXPECT_TRUE(q(0.1 + 0.2, "V") == q(0.3, "V"));
    EXPECT_FALSE(q(0.1 + 0.2, "") == q(0.3, ""));
}

TEST(QuantityOrder, PrecisionDoesNotCount) {
    EXPECT_TRUE(quantity(12.34, "V", 3) == quantity(12.34, "V", 16));
    EXPECT_FALSE(quantity(12.34, "V", 3) == quantity(12.3, "V", 3));
}

TEST(QuantityOrder, KeysOfMapsMayMixUnits) {
    COtxMap map;
    map.Map()[q(1, "km")] = COtxInt(1);
    map.Map()[q(5, "V")] = COtxInt(2);
    map.Map()[q(1, "widget")] = COtxInt(3);
    map.Map()[COtxInt(1)] = COtxInt(4);
    EXPECT_EQ(map.Map().size(), 4U);
    EXPECT_EQ(map.Map().at(q(1000, "m")).Int(), 1);
    EXPECT_EQ(map.Map().at(q(5000, "mV")).Int(), 2);
    EXPECT_EQ(map.Map().at(q(1, "widget")).Int(), 3);
    EXPECT_EQ(map.Map().at(q(100, "%")).Int(), 4);
}

TEST(QuantityOrder, RequireComparableWantsOneDimension) {
    const auto kind = [](const COtxValue& left, const COtxValue& right) {
        const int one = OTX_THROWN_KIND(COtxQuantity::RequireComparable(left, right));
        EXPECT_EQ(one, OTX_THROWN_KIND(COtxQuantity::RequireComparable(right, left)));
        return one;
    };
    constexpr int fine = -1;
    EXPECT_EQ(kind(q(1, "km"), q(1, "mm")), fine);
    EXPECT_EQ(kind(q(1, "degC"), q(1, "K")), fine);
    EXPECT_EQ(kind(q(1, "%"), COtxFloat(0.5)), fine);
    EXPECT_EQ(kind(q(1, ""), COtxInt(1)), fine);
    EXPECT_EQ(kind(q(1, "widget"), q(1, "widget")), fine);
    EXPECT_EQ(kind(q(1, "V"), q(1, "A")), invalidConversion);
    EXPECT_EQ(kind(q(1, "V"), COtxInt(1)), invalidConversion);
    EXPECT_EQ(kind(q(1, "V"), COtxFloat(1)), invalidConversion);
    EXPECT_EQ(kind(q(1, "V"), q(1, "")), invalidConversion);
    EXPECT_EQ(kind(q(1, "V"), q(1, "widget")), unknownUnit);
    EXPECT_EQ(kind(COtxInt(1), q(1, "widget")), unknownUnit);
    // Not about quantities.
    EXPECT_EQ(kind(q(1, "V"), COtxString("V")), fine);
    EXPECT_EQ(kind(q(1, "V"), COtxValue()), fine);
    EXPECT_EQ(kind(COtxInt(1), COtxString("V")), fine);
}
