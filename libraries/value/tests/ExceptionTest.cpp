// OTX exceptions and the registry of their kinds.
#include <typeinfo>

#include "Thrown.h"

namespace {

struct RegisteredClass {};
struct OtherClass {};

using OTX::Exceptions_e;

}  // namespace

TEST(Exception, ConstructorsSetKindQualifierAndText) {
    const COtxException bare(Exceptions_e::ArithmeticException);
    EXPECT_EQ(bare.Exception().Kind(), Exceptions_e::ArithmeticException);
    EXPECT_EQ(bare.Exception().Name(), "ArithmeticException");
    EXPECT_EQ(bare.Exception().Qualifier(), "");
    EXPECT_EQ(bare.Exception().Text(), "");
    EXPECT_STREQ(bare.what(), "ArithmeticException");

    const COtxException withText(Exceptions_e::OutOfBoundsException, "text");
    EXPECT_EQ(withText.Exception().Text(), "text");
    EXPECT_STREQ(withText.what(), "text");

    const COtxException full(Exceptions_e::DiagComException, "qualifier", "text");
    EXPECT_EQ(full.Exception().Qualifier(), "qualifier");

    const COtxException user("qualifier", "text");
    EXPECT_EQ(user.Exception().Kind(), Exceptions_e::UserException);
    EXPECT_EQ(user.Exception().Name(), "UserException");
    EXPECT_EQ(user.Exception().Qualifier(), "qualifier");
    EXPECT_EQ(user.Exception().Text(), "text");

    const COtxException copy(user);
    EXPECT_EQ(copy.Exception().Text(), "text");
}

// By value, as hosts may do: slicing keeps all that there is.
#if !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wcatch-value"
#endif
TEST(Exception, ThrownByTheLibraryIsCaughtAsAValueOfType12) {
    try {
        static_cast<void>(COtxString("a").Int());
        FAIL();
    } catch (COtxValue caught) {
        EXPECT_EQ(static_cast<int>(caught.Type()), 12);
    }
    try {
        static_cast<void>(COtxString("a").Int());
        FAIL();
    } catch (const COtxException& caught) {
        EXPECT_EQ(caught.Exception().Kind(), Exceptions_e::TypeMismatchException);
    }
}
#if !defined(__clang__)
#pragma GCC diagnostic pop
#endif

TEST(Exception, KindsHaveTheNamesOfTheirClasses) {
    EXPECT_EQ(COtxExceptions::Name(Exceptions_e::Exception), "Exception");
    EXPECT_EQ(COtxExceptions::Name(static_cast<Exceptions_e>(1)), "InvalidReferenceException");
    EXPECT_EQ(COtxExceptions::Name(static_cast<Exceptions_e>(13)), "GetDiagServiceFromException");
    EXPECT_EQ(COtxExceptions::Name(static_cast<Exceptions_e>(34)), "VCINotConnectedException");
    EXPECT_EQ(COtxExceptions::Name(static_cast<Exceptions_e>(41)), "FileSaveException");
    EXPECT_EQ(COtxExceptions::Name(static_cast<Exceptions_e>(42)), "Exception");
    for (int number = 0; number < 42; ++number) {
        Exceptions_e found{};
        ASSERT_TRUE(COtxExceptions::Find(COtxExceptions::Name(static_cast<Exceptions_e>(number)), found));
        EXPECT_EQ(static_cast<int>(found), number);
    }
    Exceptions_e found{};
    EXPECT_FALSE(COtxExceptions::Find("ScreenException", found));
}

TEST(Exception, RegistryTiesAKindToItsClass) {
    EXPECT_EQ(COtxExceptions::Type(Exceptions_e::FlashException), typeid(void));
    COtxExceptions::Add(Exceptions_e::FlashException, typeid(OtherClass));
    COtxExceptions::Add(Exceptions_e::FlashException, typeid(RegisteredClass));
    EXPECT_EQ(COtxException(Exceptions_e::FlashException).Exception().Type(), typeid(RegisteredClass));
    EXPECT_EQ(OTX_THROWN_KIND(COtxExceptions::Add(static_cast<Exceptions_e>(42), typeid(OtherClass))),
              tests::outOfBounds);
    EXPECT_EQ(COtxException(static_cast<Exceptions_e>(42)).Exception().Type(), typeid(void));
}
