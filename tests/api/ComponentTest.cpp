// The component's strings and the boundary exceptions.
#include <velkotx/Sequencer.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

TEST(Component, NameVersionDate) {
    EXPECT_EQ(velkotx::GetComponentName(), "VelkOTX");
    EXPECT_EQ(velkotx::GetComponentVersion(), "10.0.4.13");
    EXPECT_EQ(velkotx::GetComponentDate(), "2023/09/21 18:54:46");
}

TEST(Component, StringsAreStatic) {
    EXPECT_EQ(&velkotx::GetComponentName(), &velkotx::GetComponentName());
    EXPECT_EQ(&velkotx::GetComponentVersion(), &velkotx::GetComponentVersion());
    EXPECT_EQ(&velkotx::GetComponentDate(), &velkotx::GetComponentDate());
    static_assert(std::is_same_v<decltype(velkotx::GetComponentName()), std::string&>);
}

template <typename Exception>
void showsBothTexts() {
    auto original = std::make_unique<Exception>("what happened", "the text");
    const Exception copy = *original;
    original.reset();
    EXPECT_STREQ(copy.what(), "what happened");
    EXPECT_STREQ(copy.text(), "the text");
    EXPECT_THROW(throw copy, std::runtime_error);
    static_assert(std::has_virtual_destructor_v<Exception>);
}

TEST(BoundaryExceptions, ShowBothTextsAfterCopying) {
    showsBothTexts<velkotx::OTXRuntimeException>();
    showsBothTexts<velkotx::OTXSequenceException>();
}

TEST(BoundaryExceptions, AreNotEachOther) {
    EXPECT_FALSE((std::is_base_of_v<velkotx::OTXRuntimeException, velkotx::OTXSequenceException>));
    EXPECT_FALSE((std::is_base_of_v<velkotx::OTXSequenceException, velkotx::OTXRuntimeException>));
}

}  // namespace
