// The handle: the empty value, sharing, moving, types and refusals.
#include <type_traits>

#include "Thrown.h"

using OTX::ValueType;
using tests::streamed;
using tests::typeMismatch;

TEST(Handle, DefaultIsTheEmptyValue) {
    const COtxValue empty;
    EXPECT_EQ(empty.Type(), ValueType::Empty);
    EXPECT_EQ(static_cast<int>(empty.Type()), 0);
    EXPECT_EQ(empty.stringType(), "Empty");
    EXPECT_EQ(empty.GetBehaviourReference(), nullptr);
    EXPECT_EQ(empty.ToString().String(), "");
    EXPECT_EQ(empty.ToJSON().String(), "null");
    EXPECT_EQ(streamed(empty), "");
    EXPECT_FALSE(empty.IsContainer());
    empty.SetOTXJSON(true);
    EXPECT_STREQ(empty.what(), "Empty");
    EXPECT_TRUE(empty == COtxValue());
    EXPECT_FALSE(empty < COtxValue());
    EXPECT_EQ(OTX::DeepCopy(empty).Type(), ValueType::Empty);
}

TEST(Handle, EmptyValueRefusesWithTheOperationAndItsType) {
    const COtxValue empty;
    EXPECT_EQ(OTX_THROWN_KIND(empty.Int()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_TEXT(empty.Int()), "Operation Int is not supported by type Empty");
    EXPECT_EQ(OTX_THROWN_TEXT(empty + COtxInt(1)), "Operation Add is not supported by types Empty and Integer");
    EXPECT_EQ(OTX_THROWN_KIND(empty.List()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(empty.ToBoolean()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(empty.Event()), typeMismatch);
}

TEST(Handle, CopiesShareTheirContentAndDeepCopiesDont) {
    const COtxValue list = COtxList();
    const COtxValue copy = list;
    const COtxValue deep = OTX::DeepCopy(list);
    copy.List().push_back(COtxInt(1));
    EXPECT_EQ(list.List().size(), 1u);
    EXPECT_EQ(deep.List().size(), 0u);
    EXPECT_EQ(list.GetBehaviourReference(), copy.GetBehaviourReference());
}

TEST(Handle, MovingLeavesTheSourceEmpty) {
    COtxValue source = COtxInt(7);
    const COtxValue target = std::move(source);
    EXPECT_EQ(source.Type(), ValueType::Empty);
    EXPECT_EQ(target.Int(), 7);
    source = target;
    EXPECT_EQ(source.Int(), 7);
}

TEST(Handle, IsNothingButAnExceptionAndAPointer) {
    static_assert(std::is_base_of_v<std::exception, COtxValue>);
    static_assert(sizeof(COtxValue) == sizeof(std::exception) + sizeof(std::shared_ptr<COtxValueBehaviour>));
    static_assert(std::is_nothrow_move_constructible_v<COtxValue>);
    static_assert(!std::is_convertible_v<long long, COtxValue>);
    static_assert(std::is_base_of_v<std::enable_shared_from_this<COtxValueBehaviour>, COtxValueBehaviour>);
}

TEST(Handle, AnyValueCanBeThrownAndCaughtAsAnExceptionOfTheLanguage) {
    try {
        throw COtxValue(COtxString("text"));
    } catch (const std::exception& caught) {
        EXPECT_STREQ(caught.what(), "text");
    }
}

TEST(Handle, WhatIsTheTextOfTheValue) {
    EXPECT_STREQ(COtxBool(true).what(), "TRUE");
    EXPECT_STREQ(COtxInt(-12).what(), "-12");
    EXPECT_STREQ(COtxFloat(2).what(), "2.0");
    EXPECT_STREQ(COtxString("s").what(), "s");
    EXPECT_STREQ(COtxByteField({10, 27}).what(), "0A1B");
    EXPECT_STREQ(COtxList().what(), "List");
    EXPECT_STREQ(COtxMap().what(), "Map");
    EXPECT_STREQ(COtxUnit("V").what(), "V");
    EXPECT_STREQ(COtxQuantity(1.5, COtxUnit("V"), 3).what(), "1.5 V");
    EXPECT_STREQ(COtxResultState(COtxResultState::AllFailed).what(), "ALL_FAILED");
}

TEST(Handle, TypeNumbersAreFixed) {
    EXPECT_EQ(static_cast<int>(COtxBool(true).Type()), 1);
    EXPECT_EQ(static_cast<int>(COtxInt(1).Type()), 2);
    EXPECT_EQ(static_cast<int>(COtxString().Type()), 3);
    EXPECT_EQ(static_cast<int>(ValueType::Result), 4);
    EXPECT_EQ(static_cast<int>(ValueType::Response), 5);
    EXPECT_EQ(static_cast<int>(COtxList().Type()), 6);
    EXPECT_EQ(static_cast<int>(COtxMap().Type()), 7);
    EXPECT_EQ(static_cast<int>(COtxByteField().Type()), 8);
    EXPECT_EQ(static_cast<int>(ValueType::Parameter), 9);
    EXPECT_EQ(static_cast<int>(COtxException(OTX::Exceptions_e::Exception).Type()), 12);
    EXPECT_EQ(static_cast<int>(COtxFloat(1).Type()), 15);
    EXPECT_EQ(static_cast<int>(COtxQuantity(1.0, COtxUnit(), 16).Type()), 16);
    EXPECT_EQ(static_cast<int>(ValueType::Request), 18);
    EXPECT_EQ(static_cast<int>(ValueType::Audience), 29);
    EXPECT_EQ(static_cast<int>(ValueType::ConnectionStatus), 31);
}

TEST(Handle, TypeNamesAreDistinctAndUnknownTypesHaveOne) {
    std::map<std::string, int> seen;
    for (int number = 0; number <= static_cast<int>(ValueType::EnumerationItem); ++number)
        ++seen[OTX::typeName(static_cast<ValueType>(number))];
    EXPECT_EQ(seen.size(), static_cast<std::size_t>(ValueType::EnumerationItem) + 1);
    EXPECT_EQ(OTX::typeName(static_cast<ValueType>(99)), "Type 99");
    EXPECT_EQ(OTX::typeName(static_cast<ValueType>(-1)), "Type -1");
}

TEST(Handle, StreamsTheFormForPeople) {
    EXPECT_EQ(streamed(COtxBool(false)), "FALSE");
    EXPECT_EQ(streamed(COtxInt(1234567)), "1234567");
    EXPECT_EQ(streamed(COtxFloat(0.5)), "0.5");
    EXPECT_EQ(streamed(COtxString("a \"b\"")), "a \"b\"");
    EXPECT_EQ(streamed(COtxByteField({255})), "FF");
    EXPECT_EQ(streamed(COtxList(std::vector<COtxValue>{COtxInt(1), COtxString("x")})), "[1,\"x\"]");
    EXPECT_EQ(streamed(COtxException(OTX::Exceptions_e::UserException, "q", "t")), "UserException: q: t");
    std::ostringstream inner;
    COtxString("x").GetBehaviourReference()->ToStream(inner, 1);
    EXPECT_EQ(inner.str(), "\"x\"");
}

TEST(Handle, ConversionsOfAValueToItsOwnTypeKeepIt) {
    const COtxInt hexadecimal(12, COtxInt::Hexadecimal);
    const COtxValue same = hexadecimal.ToInteger();
    EXPECT_EQ(static_cast<const COtxIntBehaviour&>(*same.GetBehaviourReference()).Radix(), COtxInt::Hexadecimal);
    EXPECT_EQ(COtxFloat(1.5, 3).ToFloat().Precision(), 3);
    // A byte field can change, so its conversion must not share.
    const COtxByteField field(std::vector<unsigned char>{1});
    const COtxValue converted = field.ToByteField();
    converted.ByteField().SetBit(0, 1, true);
    EXPECT_EQ(field.ToString().String(), "01");
}
