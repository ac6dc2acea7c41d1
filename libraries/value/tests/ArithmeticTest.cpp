// Arithmetic of Integer and Float.
#include <cmath>
#include <limits>

#include "Thrown.h"

namespace {

using tests::arithmetic;
using tests::typeMismatch;

constexpr long long largest = std::numeric_limits<long long>::max();
constexpr long long smallest = std::numeric_limits<long long>::min();

COtxInt integer(long long value) { return COtxInt(value); }
COtxFloat real(double value) { return COtxFloat(value); }

}  // namespace

TEST(Arithmetic, IntegersAreExactUpToTheBorders) {
    EXPECT_EQ((integer(2) + integer(3)).Int(), 5);
    EXPECT_EQ((integer(2) - integer(3)).Int(), -1);
    EXPECT_EQ((integer(-4) * integer(3)).Int(), -12);
    EXPECT_EQ((integer(largest - 1) + integer(1)).Int(), largest);
    EXPECT_EQ((integer(smallest + 1) - integer(1)).Int(), smallest);
    EXPECT_EQ((integer(smallest) / integer(1)).Int(), smallest);
    EXPECT_EQ((integer(smallest / 2) * integer(2)).Int(), smallest);
    EXPECT_EQ((integer(2) + integer(3)).Type(), OTX::ValueType::Integer);
    EXPECT_EQ(static_cast<const COtxIntBehaviour&>(*(integer(2) + integer(3)).GetBehaviourReference()).Radix(),
              COtxInt::Decimal);
}

TEST(Arithmetic, IntegerOverflowIsAnArithmeticException) {
    EXPECT_EQ(OTX_THROWN_KIND(integer(largest) + integer(1)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(integer(smallest) - integer(1)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(integer(smallest) + integer(-1)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(integer(largest) * integer(2)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(integer(smallest) * integer(-1)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(integer(smallest) / integer(-1)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(integer(smallest).Abs()), arithmetic);
    EXPECT_EQ(OTX_THROWN_TEXT(integer(largest) + integer(1)),
              "Add of 9223372036854775807 and 1: the result is beyond 64 bits");
}

TEST(Arithmetic, DivisionTruncatesTowardZeroAndTheRemainderHasTheDividendsSign) {
    EXPECT_EQ((integer(7) / integer(2)).Int(), 3);
    EXPECT_EQ((integer(-7) / integer(2)).Int(), -3);
    EXPECT_EQ((integer(7) / integer(-2)).Int(), -3);
    EXPECT_EQ((integer(-7) / integer(-2)).Int(), 3);
    EXPECT_EQ((integer(7) % integer(3)).Int(), 1);
    EXPECT_EQ((integer(-7) % integer(3)).Int(), -1);
    EXPECT_EQ((integer(7) % integer(-3)).Int(), 1);
    EXPECT_EQ((integer(-7) % integer(-3)).Int(), -1);
    EXPECT_EQ((integer(5) / integer(-1)).Int(), -5);
    EXPECT_EQ((integer(smallest) % integer(-1)).Int(), 0);
}

TEST(Arithmetic, DivisionByZeroIsAnArithmeticException) {
    EXPECT_EQ(OTX_THROWN_KIND(integer(1) / integer(0)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(integer(1) % integer(0)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(real(1) / real(0)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(real(1) % real(0)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(integer(1) / real(-0.0)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(real(0) / integer(0)), arithmetic);
    EXPECT_EQ(OTX_THROWN_TEXT(integer(1) / integer(0)), "Divide of 1 and 0: division by zero");
    EXPECT_EQ(OTX_THROWN_TEXT(real(1) % real(0)), "Modulo of 1.0 and 0.0: division by zero");
}

TEST(Arithmetic, AFloatOnEitherSideGivesAFloat) {
    EXPECT_EQ((integer(1) + real(0.5)).Float(), 1.5);
    EXPECT_EQ((real(0.5) + integer(1)).Float(), 1.5);
    EXPECT_EQ((integer(1) - real(0.5)).Float(), 0.5);
    EXPECT_EQ((integer(3) * real(0.5)).Float(), 1.5);
    EXPECT_EQ((integer(3) / real(2)).Float(), 1.5);
    EXPECT_EQ((real(7.5) % integer(2)).Float(), 1.5);
    EXPECT_EQ((real(-7.5) % integer(2)).Float(), -1.5);
    EXPECT_EQ((integer(1) + real(1)).Type(), OTX::ValueType::Float);
    EXPECT_EQ((integer(1) + COtxFloat(1, 3)).Precision(), 16);
}

TEST(Arithmetic, FloatsThatLeaveTheNumbersAreAnArithmeticException) {
    constexpr double huge = std::numeric_limits<double>::max();
    EXPECT_EQ(OTX_THROWN_KIND(real(huge) + real(huge)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(real(huge) * real(2)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(real(huge) / real(0.5)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(real(-huge) - real(huge)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(real(std::numeric_limits<double>::infinity()) % real(2)), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(real(std::numeric_limits<double>::quiet_NaN()).Abs()), arithmetic);
    EXPECT_EQ(OTX_THROWN_TEXT(real(1e308) * real(10)),
              "Multiply of 1e+308 and 10.0: the result is not a finite number");
}

TEST(Arithmetic, AbsoluteValueKeepsTheType) {
    EXPECT_EQ(integer(-5).Abs().Int(), 5);
    EXPECT_EQ(integer(5).Abs().Int(), 5);
    EXPECT_EQ(real(-0.5).Abs().Float(), 0.5);
    EXPECT_EQ(OTX_THROWN_KIND(COtxString("-1").Abs()), typeMismatch);
}

TEST(Arithmetic, OtherTypesAreRefusedWithBothTypes) {
    EXPECT_EQ(OTX_THROWN_TEXT(integer(1) + COtxString("1")),
              "Operation Add is not supported by types Integer and String");
    EXPECT_EQ(OTX_THROWN_TEXT(COtxString("a") + COtxString("b")),
              "Operation Add is not supported by types String and String");
    EXPECT_EQ(OTX_THROWN_TEXT(integer(1) - COtxBool(true)),
              "Operation Subtract is not supported by types Integer and Boolean");
    EXPECT_EQ(OTX_THROWN_TEXT(real(1) * COtxList()), "Operation Multiply is not supported by types Float and List");
    EXPECT_EQ(OTX_THROWN_TEXT(COtxMap() / integer(1)), "Operation Divide is not supported by types Map and Integer");
    EXPECT_EQ(OTX_THROWN_TEXT(real(1) % COtxValue()), "Operation Modulo is not supported by types Float and Empty");
    EXPECT_EQ(OTX_THROWN_KIND(COtxUnit("V") + COtxUnit("V")), typeMismatch);
}

TEST(Arithmetic, RadixDoesNotChangeIt) {
    const COtxInt hexadecimal(255, COtxInt::Hexadecimal);
    EXPECT_EQ((hexadecimal + integer(1)).Int(), 256);
    EXPECT_EQ(hexadecimal.ToString().String(), "255");
    EXPECT_TRUE(hexadecimal == integer(255));
}

TEST(Arithmetic, NoOperandChanges) {
    const COtxInt left(40);
    const COtxInt right(2);
    static_cast<void>(left + right);
    EXPECT_EQ(left.Int(), 40);
    EXPECT_EQ(right.Int(), 2);
}
