// Every unit of the table, prefix by prefix, against UDUNITS-2.
#include <gtest/gtest.h>
#include <udunits2.h>

#include <cmath>
#include <memory>
#include <string>

#include "unit/UnitGroups.h"
#include "unit/UnitParser.h"
#include "unit/ResolvedUnit.h"

namespace {

struct Renamed {
    std::string_view ours;
    const char* theirs;
};

// What UDUNITS-2 calls otherwise, means otherwise, or gives in rounded figures: its own words for what we mean by the
// symbol, in exact figures.
constexpr Renamed renamed[] = {
    {"PS", "75 kgf.m/s"},       {"kn", "knot"},          {"nmi", "nautical_mile"}, {"gn", "gravity"},
    {"gal", "231 in^3"},        {"qt", "231 in^3/4"},    {"pt", "231 in^3/8"},     {"floz", "231 in^3/128"},
    {"hp", "550 ft.lbf/s"},     {"oz", "lb/16"},         {"deg", "degree"},        {"gon", "arc_degree.0.9"},
    {"‰", "0.001"},             {"rev", "1"},            {"stroke", "1"},          {"B", "8"},
    {"bit", "1"},
};

struct Free {
    void operator()(ut_unit* unit) const { ut_free(unit); }
    void operator()(ut_system* system) const { ut_free_system(system); }
    void operator()(cv_converter* converter) const { cv_free(converter); }
};

template <class Thing>
using Owned = std::unique_ptr<Thing, Free>;

class UnitTable : public testing::Test {
protected:
    UnitTable() {
        ut_set_error_message_handler(ut_ignore);
        system_.reset(ut_read_xml(nullptr));
    }

    void SetUp() override { ASSERT_NE(system_, nullptr) << "the data of UDUNITS-2 isn't installed"; }

    // Their unit to the base units of ours, at two points.
    void expectSame(const std::string& name, const std::string& theirs) {
        SCOPED_TRACE(name + " as " + theirs);
        const auto ours = otx::resolveUnit(name);
        ASSERT_TRUE(ours);
        const Owned<ut_unit> unit(ut_parse(system_.get(), theirs.c_str(), UT_UTF8));
        ASSERT_NE(unit, nullptr);
        const Owned<ut_unit> base(ut_parse(system_.get(), baseText(ours->dimension).c_str(), UT_UTF8));
        ASSERT_NE(base, nullptr);
        const Owned<cv_converter> converter(ut_get_converter(unit.get(), base.get()));
        ASSERT_NE(converter, nullptr) << "of another dimension";
        for (const double number : {1.0, 1000.0}) {
            const double expected = cv_convert_double(converter.get(), number);
            EXPECT_NEAR(static_cast<double>(ours->scale.toBase(number)), expected, 1e-12 * std::fabs(expected));
        }
    }

    static std::string theirName(std::string_view prefix, std::string_view symbol) {
        for (const Renamed& name : renamed)
            if (name.ours == symbol) return prefixNumber(prefix).append("(").append(name.theirs).append(")");
        return std::string(prefix) + std::string(symbol);
    }

private:
    // In front of an expression a prefix stands as its unit of nothing.
    static std::string prefixNumber(std::string_view prefix) {
        if (prefix.empty()) return {};
        // A kilometre per metre, in their words.
        return std::string("(").append(prefix).append("m/m).");
    }

    // Bits are bare numbers over there.
    static std::string baseText(const otx::Dimension& dimension) {
        std::string text = "1";
        for (std::size_t i = 0; i < dimension.powers.size(); ++i) {
            if (otx::Dimension::symbols[i] == "bit") continue;
            text.append(".").append(otx::Dimension::symbols[i]).append("^");
            text += std::to_string(dimension.powers[i]);
        }
        return text;
    }

    Owned<ut_system> system_;
};

bool takes(otx::Prefixes prefixes, const otx::UnitPrefix& prefix) {
    return prefixes == otx::Prefixes::All || (prefixes == otx::Prefixes::Larger && prefix.exponent >= 3);
}

// Whether the text is a unit by itself, so that it isn't read as one with a prefix.
bool isSymbol(const std::string& text) {
    const auto found = otx::findUnit(text);
    return found && found->prefix == nullptr;
}

}  // namespace

TEST_F(UnitTable, HasTheScalesOfUdunits) {
    int compared = 0;
    for (const otx::UnitEntry& entry : otx::unitEntries()) {
        expectSame(std::string(entry.symbol), theirName("", entry.symbol));
        for (const otx::UnitPrefix& prefix : otx::unitPrefixes()) {
            const std::string name = std::string(prefix.symbol) + std::string(entry.symbol);
            if (!takes(entry.prefixes, prefix) || isSymbol(name)) continue;
            expectSame(name, theirName(prefix.symbol, entry.symbol));
            ++compared;
        }
    }
    EXPECT_GT(compared, 500);
}

TEST_F(UnitTable, HasTheWordsOfUdunits) {
    for (const otx::UnitWord& word : otx::unitWords()) {
        const auto found = otx::findUnit(word.word);
        ASSERT_TRUE(found) << word.word;
        // These are no words over there, or other ones; UnitWordTest.cpp has them.
        const std::string_view others[] = {"rpm",   "mph",        "kph",        "mpg",   "byte",
                                           "bit",   "revolution", "horsepower", "ounce", "gallon",
                                           "quart", "pint",       "inches",     "feet",  "amp"};
        bool same = true;
        for (const std::string_view other : others) same = same && other != word.word;
        if (same) expectSame(std::string(word.word), std::string(word.word));
    }
}

TEST_F(UnitTable, ProductsAreThoseOfUdunits) {
    for (const char* const name :
         {"km/h",  "m/s^2",    "m/s2",   "1/min",  "kW.h",   "kW h",    "W/m2/K", "W/(m2.K)", "min-1",
          "m.s-2", "degC/min", "W/degF", "J/kg.K", "lbf.ft", "mi/h",    "µV",     "kΩ",       "m·s^-1",
          "m/s²",  "kg.m²",    "mol/l",  "mg/m3",  "V/K",    "lb/in^3", "l/h",    "rad/s",    "A.s/V"})
        expectSame(name, name);
    expectSame("deg/s", "degree/s");
    // Other spellings.
    for (const char* const name : {"°C", "°F", "°R", "\u2103", "\u2109", "ohm", "mohm", "\u03A9", "\u2126", "L", "mL",
                                   "hr", "kt", "cc", "degK", "°"})
        expectSame(name, name);
    expectSame("sec", "s");
    expectSame("lbs", "lb");
    expectSame("kp", "kgf");
    expectSame("pct", "%");
    expectSame("kmh", "km/h");
    expectSame("kph", "km/h");
    expectSame("mpg", "mi/(231 in^3)");
    expectSame("lbft", "lbf.ft");
    expectSame("lb-ft", "lbf.ft");
    expectSame("ft-lb", "lbf.ft");
    expectSame("Nmm", "N.mm");
    expectSame("Ncm", "N.cm");
    expectSame("As", "A.s");
    expectSame("Ws", "W.s");
    expectSame("var", "W");
    expectSame("Baud", "baud");
    expectSame("kBaud", "kBd");
    // Turns are counted here, and measured as angles there.
    expectSame("rpm", "1/min");
    expectSame("U/min", "1/min");
    expectSame("mph", "mi/h");
    expectSame("Nm", "N.m");
    expectSame("mNm", "mN.m");
    expectSame("Ah", "A.h");
    expectSame("mAh", "mA.h");
    expectSame("kWh", "kW.h");
    expectSame("kVA", "kV.A");
    expectSame("Vs", "V.s");
    expectSame("ccm", "cm3");
    expectSame("l/100km", "0.01 l/km");
}

TEST(UnitRows, AreInOrderAndDifferent) {
    const auto expectOrdered = [](const auto& rows, auto member) {
        for (std::size_t i = 1; i < rows.size(); ++i) EXPECT_LT(rows[i - 1].*member, rows[i].*member);
    };
    expectOrdered(otx::unitEntries(), &otx::UnitEntry::symbol);
    expectOrdered(otx::unitAliases(), &otx::UnitAlias::symbol);
    expectOrdered(otx::unitWords(), &otx::UnitWord::word);
    for (const otx::UnitAlias& alias : otx::unitAliases())
        for (const otx::UnitEntry& entry : otx::unitEntries()) EXPECT_NE(alias.symbol, entry.symbol);
}

TEST(UnitRows, MeanWhatTheirMeaningMeans) {
    for (const otx::UnitAlias& alias : otx::unitAliases()) {
        SCOPED_TRACE(alias.symbol);
        const auto ours = otx::resolveUnit(alias.symbol);
        const auto meant = otx::resolveUnit(alias.meaning);
        ASSERT_TRUE(ours);
        ASSERT_TRUE(meant);
        EXPECT_EQ(ours->dimension, meant->dimension);
        EXPECT_EQ(ours->scale.toBase(1), meant->scale.toBase(1));
        EXPECT_EQ(ours->scale.toBase(100), meant->scale.toBase(100));
    }
}

// A name is written so that it can be read again.
TEST(UnitRows, AreFoundUnderTheirNames) {
    for (const otx::UnitEntry& entry : otx::unitEntries()) {
        const auto terms = otx::parseUnit(entry.symbol);
        ASSERT_TRUE(terms) << entry.symbol;
        ASSERT_EQ(terms->size(), 1U);
        EXPECT_EQ(terms->begin()->entry, &entry);
        EXPECT_EQ(terms->name(), entry.symbol);
    }
}

// Each way, a unit comes to one of the same dimension.
TEST(UnitRows, HaveEquivalentsOfTheSameDimension) {
    int localized = 0;
    for (const otx::UnitEntry& entry : otx::unitEntries()) {
        for (const std::string prefix : {"", "k", "d", "c", "m", "h", "M"}) {
            const std::string name = prefix + std::string(entry.symbol);
            const auto terms = otx::parseUnit(name);
            if (!terms) continue;
            for (const otx::UnitGroup group : {otx::UnitGroup::Metric, otx::UnitGroup::Imperial}) {
                const auto equivalent = otx::equivalentUnit(*terms, group);
                if (!equivalent) continue;
                const auto other = otx::resolveUnit(*equivalent);
                ASSERT_TRUE(other) << *equivalent;
                EXPECT_EQ(other->dimension, otx::resolve(*terms).dimension) << name << " and " << *equivalent;
                ++localized;
            }
        }
    }
    EXPECT_GT(localized, 35);
}
