// Lists, maps, and the look-ups in them.
#include "Thrown.h"

namespace {

using OTX::ValueType;
using tests::outOfBounds;
using tests::typeMismatch;

using Named = std::map<const std::string, COtxValue>;

COtxMap settings() { return COtxMap(Named{{"count", COtxInt(3)}, {"name", COtxString("n")}}); }

}  // namespace

TEST(List, HoldsHandles) {
    const COtxValue inner = COtxList();
    std::vector<COtxValue> items{COtxInt(1), inner};
    const COtxList copied(items);
    EXPECT_EQ(copied.List().size(), 2u);
    EXPECT_EQ(items.size(), 2u);
    inner.List().push_back(COtxInt(2));
    EXPECT_EQ(copied.List()[1].List().size(), 1u);
    const COtxList moved(std::move(items));
    EXPECT_EQ(moved.List()[0].Int(), 1);
    EXPECT_EQ(OTX_THROWN_TEXT(COtxInt(1).List()), "Operation List is not supported by type Integer");
}

TEST(Map, CopyConstructorCopiesTheContentAndOtherHandlesShareIt) {
    const COtxMap original(Named{{"a", COtxInt(1)}});
    const COtxMap independent(original);
    const COtxValue shared = original;
    shared.Map()[COtxString("b")] = COtxInt(2);
    EXPECT_EQ(original.Map().size(), 2u);
    EXPECT_EQ(independent.Map().size(), 1u);
    COtxMap assigned;
    assigned = original;
    assigned.Map().clear();
    EXPECT_EQ(original.Map().size(), 2u);
}

TEST(Map, CopyIsShallow) {
    const COtxValue inner = COtxList();
    const COtxMap original(Named{{"list", inner}});
    const COtxMap copy(original);
    inner.List().push_back(COtxInt(1));
    EXPECT_EQ(copy.Map().at(COtxString("list")).List().size(), 1u);
}

TEST(Map, ConstructorsTakePlainMaps) {
    std::map<COtxValue, COtxValue> entries{{COtxInt(2), COtxString("two")}, {COtxInt(1), COtxString("one")}};
    const COtxMap copied(entries);
    EXPECT_EQ(entries.size(), 2u);
    EXPECT_EQ(copied.Map().begin()->first.Int(), 1);
    const COtxMap moved(std::move(entries));
    EXPECT_EQ(moved.Map().size(), 2u);
    EXPECT_EQ(COtxMap().Map().size(), 0u);
    EXPECT_EQ(settings().Map().begin()->first.String(), "count");
    COtxMap source = settings();
    const COtxMap target(std::move(source));
    EXPECT_EQ(target.Map().size(), 2u);
}

TEST(DeepCopy, SharesNothingMutable) {
    const COtxValue field = COtxByteField(std::vector<unsigned char>{1});
    const COtxValue map = COtxMap(Named{{"field", field}, {"list", COtxList(std::vector<COtxValue>{COtxList()})}});
    const COtxValue copy = OTX::DeepCopy(map);
    field.ByteField().SetBit(0, 7, true);
    map.Map().at(COtxString("list")).List()[0].List().push_back(COtxInt(1));
    EXPECT_EQ(tests::json(copy), R"({"field":"01","list":[[]]})");
    EXPECT_FALSE(copy == map);
}

TEST(DeepCopy, KeysAreCopiedToo) {
    const COtxValue key = COtxByteField(std::vector<unsigned char>{1});
    const COtxValue copy = OTX::DeepCopy(COtxMap(std::map<COtxValue, COtxValue>{{key, COtxInt(1)}}));
    key.ByteField().Clear();
    EXPECT_EQ(copy.Map().begin()->first.ToString().String(), "01");
}

TEST(DeepCopy, KeepsWhatIsHeldTwiceTogether) {
    const COtxValue inner = COtxList();
    const COtxValue copy = OTX::DeepCopy(COtxList(std::vector<COtxValue>{inner, inner}));
    copy.List()[0].List().push_back(COtxInt(1));
    EXPECT_EQ(copy.List()[1].List().size(), 1u);
    EXPECT_EQ(inner.List().size(), 0u);
}

TEST(DeepCopy, OfAValueSharedOverManyLevelsIsNoWorkOfAllItsPaths) {
    COtxValue value = COtxList();
    for (int level = 0; level < 200; ++level) value = COtxList(std::vector<COtxValue>{value, value});
    EXPECT_EQ(OTX::DeepCopy(value).List().size(), 2u);
}

TEST(GetParameter, ChecksKeyAndType) {
    EXPECT_EQ(OTX::GetParameter(settings(), "count", ValueType::Integer).Int(), 3);
    EXPECT_EQ(OTX::GetParameter(settings(), "count", ValueType::Empty).Int(), 3);
    EXPECT_EQ(OTX_THROWN_KIND(OTX::GetParameter(settings(), "other", ValueType::Integer)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_TEXT(OTX::GetParameter(settings(), "other", ValueType::Integer)),
              "Parameter 'other' is missing");
    EXPECT_EQ(OTX_THROWN_KIND(OTX::GetParameter(settings(), "count", ValueType::String)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_TEXT(OTX::GetParameter(settings(), "count", ValueType::String)),
              "Parameter 'count' is of type Integer instead of String");
    EXPECT_EQ(OTX_THROWN_KIND(OTX::GetParameter(COtxValue(), "count", ValueType::Integer)), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(OTX::GetParameter(COtxList(), "count", ValueType::Integer)), typeMismatch);
}

TEST(GetOptionalParameter, AnswersTheFallbackForAMissingKeyOnly) {
    const COtxInt fallback(-1);
    EXPECT_EQ(OTX::GetOptionalParameter(settings(), "count", fallback, ValueType::Integer).Int(), 3);
    EXPECT_EQ(OTX::GetOptionalParameter(settings(), "other", fallback, ValueType::Integer).Int(), -1);
    EXPECT_EQ(OTX::GetOptionalParameter(settings(), "name", fallback, ValueType::Empty).String(), "n");
    EXPECT_EQ(OTX::GetOptionalParameter(COtxValue(), "count", fallback, ValueType::Integer).Int(), -1);
    EXPECT_EQ(OTX_THROWN_KIND(OTX::GetOptionalParameter(settings(), "name", fallback, ValueType::Integer)),
              typeMismatch);
    const COtxMap holdingNothing(std::map<const std::string, COtxValue>{{"count", COtxValue()}});
    EXPECT_EQ(OTX_THROWN_KIND(OTX::GetOptionalParameter(holdingNothing, "count", fallback, ValueType::Integer)),
              typeMismatch) << "an entry without a value is there";
    EXPECT_EQ(OTX_THROWN_KIND(OTX::GetOptionalParameter(COtxInt(1), "name", fallback, ValueType::Integer)),
              typeMismatch);
}

TEST(ValMap, OfAnEmptyMapIsAnEmptyMap) {
    EXPECT_TRUE(OTX::ValMap(COtxMap()).empty());
    EXPECT_TRUE(OTX::ValMap(COtxValue()).empty());
}

TEST(ValMap, IsKeyedByPlainStrings) {
    const auto plain = OTX::ValMap(settings());
    EXPECT_EQ(plain.size(), 2u);
    EXPECT_EQ(plain.at("count").Int(), 3);
    EXPECT_EQ(OTX_THROWN_KIND(OTX::ValMap(COtxMap(std::map<COtxValue, COtxValue>{{COtxInt(1), COtxInt(1)}}))),
              typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(OTX::ValMap(COtxList())), typeMismatch);
}
