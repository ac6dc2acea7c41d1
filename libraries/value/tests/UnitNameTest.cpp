// How names of units are read.
#include <array>
#include <random>

#include "Quantities.h"

using namespace tests;

namespace {

struct Same {
    const char* name;
    double factor;
    const char* unit;
};

// One of the first unit is so many of the other.
constexpr Same spellings[] = {
    {"km/h", 1, "km.h-1"},
    {"m/s^2", 1, "m/s2"},
    {"m/s²", 1, "m/s2"},
    {"m.s⁻²", 1, "m/s2"},
    {"m/s^+2", 1, "m/s2"},
    {"m/s/s", 1, "m/s2"},
    {"m·s^-2", 1, "m/s2"},
    {"m s-2", 1, "m/s2"},
    {"m * s-2", 1, "m/s2"},
    {" m / s2 ", 1, "m/s2"},
    {"m⋅s-2", 1, "m/s2"},
    {"m×s-2", 1, "m/s2"},
    {"1/min", 1, "min-1"},
    {"min^-1", 1, "1/min"},
    {"min⁻¹", 1, "1/min"},
    {"rpm", 1, "1/min"},
    {"RPM", 1, "1/min"},
    {"U/min", 1, "1/min"},
    {"rev/min", 1, "1/min"},
    {"mV", 1e-3, "V"},
    {"MV", 1e6, "V"},
    {"µA", 1e-6, "A"},
    {"μA", 1e-6, "A"},
    {"uA", 1e-6, "A"},
    {"dal", 10, "l"},
    {"dam", 10, "m"},
    {"kg", 1000, "g"},
    {"Ω", 1, "Ohm"},
    {"\u2126", 1, "Ohm"},
    {"kΩ", 1000, "ohm"},
    {"°C/s", 1, "K/s"},
    {"K/min", 1, "°C/min"},
    {"°F/s", 5.0 / 9, "K/s"},
    {"°", 60, "arcmin"},
    {"W/(m2.K)", 1, "W/m2/K"},
    {"W/(m².K)", 1, "W.m-2.K-1"},
    {"(m/s)^2", 1, "m2/s2"},
    {"(m/s)2", 1, "m2.s-2"},
    {"1/(1/(1/s))", 1, "Hz"},
    {"((((((((m))))))))", 1, "m"},
    {"kW.h", 1, "kWh"},
    {"Nm", 1, "N.m"},
    {"kNm", 1, "kN.m"},
    {"mNm", 1, "mN.m"},
    {"VA", 1, "W"},
    {"mAh", 3.6, "C"},
    {"l/100km", 10, "l/1000km"},
    {"l/100 km", 1e-2, "l.km"},
    {"l/(100km)", 1, "l/100km"},
    {"l/100.km", 1, "l/100 km"},
    {"10m", 10, "m"},
    {"0.1m", 1, "dm"},
    {"10^3m", 1, "km"},
    {"10^-3.m", 1, "mm"},
    {"2*3*m", 6, "m"},
    {"m0", 1, "1"},
    {"mph", 1, "mi/h"},
    {"MPH", 1, "mph"},
    {"kph", 1, "km/h"},
    {"kmh", 1, "km/h"},
    {"%", 10, "‰"},
    {"ppm", 1e-4, "percent"},
    {"-", 1, "1"},
    {"mg/stroke", 1, "mg/Hub"},
    {"cc", 1, "ml"},
    {"kB", 8000, "bit"},
    {"lb-ft", 1, "lbf.ft"},
    {"kilometers", 1, "km"},
    {"KiloMetres", 1, "km"},
    {"Volt", 1, "V"},
    {"millivolts", 1, "mV"},
    // Blanks multiply, but for the aliases that are a whole name.
    {"deg C/s", 1, "deg.C/s"},
    {"hours", 3600, "seconds"},
    {"PSI", 1, "psi"},
    {"kt", 1, "knots"},
};

constexpr const char* bad[] = {
    "widget",
    "/",
    ".",
    "*",
    "^",
    "m^",
    "m^x",
    "m^-",
    "m/",
    "/m",
    "m.",
    ".m",
    "m..s",
    "m//s",
    "m./s",
    "(",
    ")",
    "()",
    "(m",
    "m)",
    "(m))",
    "m(s",
    "m^100",
    "m-100",
    "m100",
    "m^99999999999999999999",
    "(m60)2",
    "(m^2)^99",
    "m⁻",
    "m¹⁰⁰",
    "0",
    "0m",
    "1234567890123456789",
    "1e3m",
    "m,s",
    "m+s",
    "m-s",
    "m--1",
    "-m",
    "+1",
    "1-",
    "10-3",
    "m!",
    "m\n",
    "m\ts",
    "kkm",
    "dB",
    "dBm",
    "mmin",
    "kdegC",
    "Km",
    "kKM",
    "Ohmm2/",
    "V/A/",
    "µ",
    "k",
    "kilo",
    "\xFF",
    "\xC2",
    "m\xC2",
    "m²³x",
    "(((((((((((((((((((m)))))))))))))))))))",
    "m.m.m.m.m.m.m.m.m.m.m.m.m.m.m.m.m",
    "Ym99.Ym99.Ym99",
    "averyveryveryveryverylongname",
    "°X",
    "[V]",
    "V;",
    "mh",
    "\"V\"",
};

// Whether conversion knows the unit, and what it raises if not.
int kindOf(const std::string& name) {
    return OTX_THROWN_KIND(COtxQuantity(1.0, COtxUnit(name), 16).Quantity().GetBaseUnit());
}

}  // namespace

TEST(UnitName, IsReadInEverySpelling) {
    for (const Same& same : spellings) {
        SCOPED_TRACE(same.name);
        try {
            EXPECT_DOUBLE_EQ(converted(1, same.name, same.unit), same.factor);
            EXPECT_DOUBLE_EQ(converted(same.factor, same.unit, same.name), 1);
        } catch (const COtxValue& failure) {
            ADD_FAILURE() << failure.what();
        }
    }
}

TEST(UnitName, KeepsItsZeroWhereItStandsAlone) {
    for (const char* const name : {"degC", "°C", "\u2103", "deg C", "Celsius", "(degC)", "1.degC", "degC^1", " degC "})
        EXPECT_EQ(converted(20, name, "K"), 293.15) << name;
    for (const char* const name : {"degF", "°F", "\u2109", "deg F", "fahrenheit"})
        EXPECT_EQ(converted(68, name, "K"), 293.15) << name;
}

TEST(UnitName, ThatIsNoneIsFoundOutWhenItIsNeeded) {
    for (const std::string name : bad) {
        SCOPED_TRACE(name);
        EXPECT_EQ(kindOf(name), unknownUnit);
        EXPECT_EQ(OTX_THROWN_KIND(converted(1, name, "m")), unknownUnit);
        EXPECT_EQ(OTX_THROWN_KIND(converted(1, "m", name)), unknownUnit);
        // Until then it is a name.
        EXPECT_EQ(COtxUnit(name).Unit().Name(), name);
        EXPECT_EQ(quantity(1, name).ToString().String(), "1.0 " + name);
        EXPECT_TRUE(quantity(1, name) == quantity(1, name));
        EXPECT_NO_THROW(quantity(1, name).Quantity().Localize("imperial"));
    }
}

TEST(UnitName, MayBeVeryLong) {
    EXPECT_EQ(kindOf(std::string(1'000'000, '(')), unknownUnit);
    EXPECT_EQ(kindOf(std::string(1'000'000, 'm')), unknownUnit);
    EXPECT_EQ(kindOf(std::string(1'000'000, '1')), unknownUnit);
    EXPECT_EQ(kindOf("m" + std::string(1'000'000, '9')), unknownUnit);
    EXPECT_EQ(kindOf("m" + std::string(1'000'000, ' ') + "s"), -1);
}

// Whatever is put together of these is a unit or kind 17; and what is one keeps its size through being built and
// read.
TEST(UnitName, MadeAtRandomIsAUnitOrRefused) {
    constexpr std::array pieces{"m",   "s", "k",    "V",   "/",   ".",  "*", "(", ")",  "^",  "-",   "1",   "2",
                                "100", " ", "°C",   "µ",   "min", "Nm", "²", "⁻", "·",  "%",  "l",   "km",  "x",
                                "+",   "9", "\xC2", "rpm", "deg", "Ω",  "h", "°", "kg", "da", "lbf", "psi", "0"};
    std::mt19937 random(20240607);
    int units = 0;
    for (int round = 0; round < 100'000; ++round) {
        std::string name;
        for (auto length = random() % 9; length > 0; --length) name += pieces[random() % pieces.size()];
        const int kind = kindOf(name);
        ASSERT_TRUE(kind == -1 || kind == unknownUnit) << name;
        if (kind != -1) continue;
        ++units;
        // Blanks are the empty unit, and the dash is one that is a whole name only.
        if (name.find_first_not_of(" -") == std::string::npos) continue;
        const COtxValue product = quantity(1, name) * quantity(1, "cd");
        const double one = number(COtxQuantity(product, COtxUnit(name + ".cd"), 16));
        ASSERT_NEAR(one, 1, 1e-14) << name << " gives " << shown(product);
    }
    EXPECT_GT(units, 5'000);
}

TEST(UnitName, MadeOfAnyBytesIsAUnitOrRefused) {
    std::mt19937 random(4711);
    for (int round = 0; round < 100'000; ++round) {
        std::string name;
        for (auto length = random() % 12; length > 0; --length) name += static_cast<char>(random() % 256);
        const int kind = kindOf(name);
        ASSERT_TRUE(kind == -1 || kind == unknownUnit) << name;
    }
}
