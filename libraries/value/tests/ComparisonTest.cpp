// Equality and order of values.
#include <limits>

#include "Thrown.h"

namespace {

constexpr long long largest = std::numeric_limits<long long>::max();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

COtxValue list(std::vector<COtxValue> items) { return COtxList(std::move(items)); }

// In their order; those of one row are equal.
std::vector<std::vector<COtxValue>> ordered() {
    return {
        {COtxValue()},
        {COtxBool(false)},
        {COtxBool(true)},
        {COtxFloat(nan), COtxFloat(-nan)},
        {COtxFloat(-infinity)},
        {COtxInt(std::numeric_limits<long long>::min()), COtxFloat(-9223372036854775808.0)},
        {COtxInt(-1), COtxFloat(-1)},
        {COtxFloat(-0.5)},
        {COtxInt(0), COtxFloat(0.0), COtxFloat(-0.0), COtxLogLevel(COtxLogLevel::All)},
        {COtxFloat(0.5)},
        {COtxInt(1), COtxFloat(1), COtxResponseState(COtxResponseState::Invalid),
         COtxLogLevel(COtxLogLevel::Trace)},
        {COtxInt(9007199254740992), COtxFloat(9007199254740992.0)},
        {COtxInt(9007199254740993)},
        {COtxInt(largest - 1)},
        {COtxInt(largest)},
        {COtxFloat(9223372036854775808.0)},
        {COtxFloat(infinity)},
        {COtxString("")},
        {COtxString("A")},
        {COtxString("a"), COtxString("a")},
        {COtxString("ab")},
        {COtxString("\xC3\xA4")},
        {COtxByteField()},
        {COtxByteField(std::vector<unsigned char>{0})},
        {COtxByteField(std::vector<unsigned char>{0, 1})},
        {COtxByteField(std::vector<unsigned char>{1})},
        {list({})},
        {list({COtxInt(1)}), list({COtxFloat(1)})},
        {list({COtxInt(1), COtxInt(0)})},
        {list({COtxInt(2)})},
        {list({COtxString("a")})},
        {COtxMap()},
        {COtxMap(std::map<COtxValue, COtxValue>{{COtxInt(1), COtxInt(1)}}),
         COtxMap(std::map<COtxValue, COtxValue>{{COtxFloat(1), COtxInt(1)}})},
        {COtxMap(std::map<COtxValue, COtxValue>{{COtxInt(1), COtxInt(2)}})},
        {COtxException(OTX::Exceptions_e::ArithmeticException, "a"),
         COtxException(OTX::Exceptions_e::ArithmeticException, "a")},
        {COtxException(OTX::Exceptions_e::ArithmeticException, "b")},
        {COtxException(OTX::Exceptions_e::UserException, "a", "a")},
        {COtxQuantity(2.0, COtxUnit("A"), 16), COtxQuantity(COtxInt(2), COtxUnit("A"), 3)},
        {COtxQuantity(1.0, COtxUnit("V"), 16)},
        {COtxUnit("A")},
        {COtxUnit("V")},
        {COtxEnumerationItem(COtxString("T"), COtxString("n"), COtxInt(1))},
        {COtxEnumerationItem(COtxString("T"), COtxString("a"), COtxInt(2))},
        {COtxEnumerationItem(COtxString("U"), COtxString("a"), COtxInt(1))},
    };
}

}  // namespace

// All six operators against the order of the rows: with that, the order is strict and weak over all of them.
TEST(Comparison, OrdersAllTypesByFamilyAndValue) {
    const auto rows = ordered();
    for (std::size_t left = 0; left < rows.size(); ++left) {
        for (std::size_t right = 0; right < rows.size(); ++right) {
            for (const COtxValue& first : rows[left]) {
                for (const COtxValue& second : rows[right]) {
                    SCOPED_TRACE(tests::streamed(first) + " and " + tests::streamed(second));
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

TEST(Comparison, IntegersAndFloatsCompareWithoutLosingLowBits) {
    // As doubles these were equal.
    EXPECT_FALSE(COtxInt(9007199254740993) == COtxFloat(9007199254740992.0));
    EXPECT_TRUE(COtxFloat(9007199254740992.0) < COtxInt(9007199254740993));
    EXPECT_FALSE(COtxInt(largest) == COtxFloat(static_cast<double>(largest)));
    EXPECT_TRUE(COtxInt(largest) < COtxFloat(static_cast<double>(largest)));
    EXPECT_TRUE(COtxInt(2) < COtxFloat(2.5));
    EXPECT_TRUE(COtxInt(-2) > COtxFloat(-2.5));
}

TEST(Comparison, DifferentFamiliesAreUnequalAndNothingIsThrown) {
    EXPECT_FALSE(COtxInt(1) == COtxString("1"));
    EXPECT_FALSE(COtxBool(true) == COtxInt(1));
    EXPECT_FALSE(COtxString("0A") == COtxByteField(std::vector<unsigned char>{10}));
    EXPECT_FALSE(COtxValue() == COtxInt(0));
    EXPECT_FALSE(COtxInt(0) == COtxValue());
    EXPECT_TRUE(COtxInt(1) != COtxString("1"));
    EXPECT_FALSE(COtxList() == COtxMap());
}

TEST(Comparison, MapsFindTheirKeysWhateverTheirTypes) {
    std::map<COtxValue, COtxValue> entries;
    const auto rows = ordered();
    for (std::size_t row = 0; row < rows.size(); ++row)
        entries[rows[row].front()] = COtxInt(static_cast<long long>(row));
    const COtxMap map(entries);
    ASSERT_EQ(map.Map().size(), rows.size());
    long long place = 0;
    for (const auto& [key, value] : map.Map()) EXPECT_EQ(value.Int(), place++);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (const COtxValue& key : rows[row])
            EXPECT_EQ(map.Map().at(key).Int(), static_cast<long long>(row)) << tests::streamed(key);
    }
}

TEST(Comparison, ContainersCompareByContent) {
    const COtxValue one = list({COtxInt(1), list({COtxString("x")})});
    const COtxValue same = list({COtxFloat(1), list({COtxString("x")})});
    const COtxValue other = list({COtxInt(1), list({COtxString("y")})});
    EXPECT_TRUE(one == same);
    EXPECT_FALSE(one == other);
    EXPECT_TRUE(one < other);
    EXPECT_TRUE(OTX::DeepCopy(one) == one);
}
