// What hostile documents meet: limits of nesting and attributes, small stacks.
#include "Documents.h"

#include <schema/Limits.h>
#include <schema/DocumentOwner.h>

#include <gtest/gtest.h>

namespace tree_tests {
namespace {

TEST(Limits, NestingUpToTheLimitAndNotBeyond) {
    if (!deepCallsFit) GTEST_SKIP() << "the thread sanitizer bears no deep calls";
    // otx, procedures, procedure, realisation, flow around the groups, two levels each.
    const std::size_t most = (schema::maximumDepth - 5) / 2;
    onThread(64 * 1024 * 1024, [most] {
        EXPECT_EQ(failure(nestedGroups(most)), "");
        EXPECT_NE(failure(nestedGroups(most + 1)).find("elements nested more than 10000 deep"), std::string::npos);
    });
}

TEST(Limits, AttributesUpToTheLimitAndNotBeyond) {
    const auto withAttributes = [](std::size_t count) {
        std::string text = "<action id=\"a\"";
        for (std::size_t i = 1; i < count; ++i) text += " x" + std::to_string(i) + "=\"\"";
        return document(text + "/>");
    };
    EXPECT_EQ(failure(withAttributes(schema::maximumAttributes)), "");
    EXPECT_NE(failure(withAttributes(schema::maximumAttributes + 1)).find("more than 10000 attributes"),
              std::string::npos);
}

TEST(Limits, ASmallStackGetsTheErrorInsteadOfACrash) {
    onThread(256 * 1024, [] {
        EXPECT_EQ(failure(nestedGroups(4'000)), "document nested too deep for the stack of this thread");
        EXPECT_EQ(failure(nestedGroups(5)), "");
    });
}

TEST(Limits, ADeepTreeMayBeDroppedOnASmallStack) {
    if (!deepCallsFit) GTEST_SKIP() << "the thread sanitizer bears no deep calls";
    std::shared_ptr<otxns::Otx> shared;
    onThread(64 * 1024 * 1024, [&shared] {
        const otxns::StackUse use;
        auto tree = load(nestedGroups(4'500));
        shared = otxns::ownDocument(std::move(tree), use);
    });
    onThread(128 * 1024, [&shared] { shared.reset(); });
    EXPECT_EQ(shared, nullptr);
}

TEST(Limits, ADeepCompiledFileMeetsTheSameCheck) {
    if (!deepCallsFit) GTEST_SKIP() << "the thread sanitizer bears no deep calls";
    std::string bytes;
    onThread(64 * 1024 * 1024, [&bytes] { bytes = compiled(*load(nestedGroups(4'000))); });
    onThread(256 * 1024, [&bytes] { EXPECT_THROW(fromCompiled(bytes), std::exception); });
}

// A compiled file of groups in groups: `count` of them as the library writes them, and `eights` times eight more. Each
// level is the same bytes in front of the innermost and a few zeros behind; eight of them leave the padding as it is.
std::string compiledGroups(std::size_t count, std::size_t eights) {
    const std::string made = compiled(*load(nestedGroups(count)));
    const std::string larger = compiled(*load(nestedGroups(count + 8)));
    const std::string begin("\x01\0\0\0\x02\0\0\0\0\0\0\0\x02\0\0\0g\0\0\0", 20);
    const std::size_t first = made.find(begin);
    const std::size_t level = made.find(begin, first + 1) - first;
    const std::size_t behind = larger.size() - made.size() - 8 * level;
    const std::size_t innermost = made.rfind(begin) + begin.size() + 16;
    std::string text = made.substr(0, first);
    for (std::size_t i = 0; i < 8 * eights; ++i) text += made.substr(first, level);
    text += made.substr(first, innermost - first);
    text.append(behind * eights, '\0');
    return text + made.substr(innermost);
}

TEST(Limits, ACompiledFileMeetsTheLimitOfNestingToo) {
    if (!deepCallsFit) GTEST_SKIP() << "the thread sanitizer bears no deep calls";
    onThread(64 * 1024 * 1024, [] {
        ASSERT_TRUE(compiledGroups(5, 12) == compiled(*load(nestedGroups(101))));
        // 4,997 groups of two levels each in five others.
        static_assert((schema::maximumDepth - 5) / 2 == 4'997);
        EXPECT_NO_THROW(fromCompiled(compiledGroups(5, 624)));
        try {
            fromCompiled(compiledGroups(6, 624));
            ADD_FAILURE() << "not refused";
        } catch (const schema::Exception& failure) {
            EXPECT_STREQ(failure.what(), "document nested more than 10000 deep");
        }
    });
}

TEST(Limits, ADocumentTypeDeclarationIsRefusedBeforeItIsRead) {
    const std::string text = "<?xml version=\"1.0\"?>\n<!DOCTYPE otx SYSTEM \"file:///etc/hostname\" [<!ENTITY x \"y\">]>\n<otx/>";
    EXPECT_NE(failure(text).find("a document type declaration is not allowed"), std::string::npos);
    EXPECT_EQ(failure(text).substr(0, 3), ":2:");
}

}  // namespace
}  // namespace tree_tests
