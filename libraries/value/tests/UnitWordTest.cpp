// Words for units, by the public definitions of what they mean.
#include <gtest/gtest.h>

#include <cmath>
#include <string_view>

#include "unit/ResolvedUnit.h"

namespace {

struct Definition {
    std::string_view word;
    double number;
    std::string_view unit;
};

// The inch and the pound are those agreed upon in 1959. The gallon is that of the United States, 231 cubic inches; the
// horsepower is 550 foot-pounds of force per second. A revolution is counted, not measured as an angle.
constexpr double inch = 0.0254;
constexpr double foot = 12 * inch;
constexpr double pound = 0.45359237;
constexpr double gravity = 9.80665;
constexpr double gallon = 231 * inch * inch * inch;

constexpr Definition definitions[] = {
    {"inches", inch, "m"},        {"feet", foot, "m"},
    {"ounce", pound / 16, "kg"},  {"gallon", gallon, "m3"},
    {"quart", gallon / 4, "m3"},  {"pint", gallon / 8, "m3"},
    {"amp", 1, "A"},              {"horsepower", 550 * foot * pound * gravity, "W"},
    {"byte", 8, "bit"},           {"bit", 0.125, "B"},
    {"revolution", 1, "1"},
};

}  // namespace

TEST(UnitWords, MeanWhatTheyAreDefinedAs) {
    for (const Definition& definition : definitions) {
        SCOPED_TRACE(definition.word);
        const auto ours = otx::resolveUnit(definition.word);
        const auto si = otx::resolveUnit(definition.unit);
        ASSERT_TRUE(ours);
        ASSERT_TRUE(si);
        EXPECT_EQ(ours->dimension, si->dimension);
        for (const double count : {1.0, 1000.0}) {
            const auto expected = static_cast<double>(si->scale.toBase(count * definition.number));
            EXPECT_NEAR(static_cast<double>(ours->scale.toBase(count)), expected, 1e-12 * std::fabs(expected));
        }
    }
}
