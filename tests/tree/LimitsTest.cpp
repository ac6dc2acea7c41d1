// What hostile documents meet: limits of nesting and attributes, small stacks.
#include "Documents.h"

#include <schema/Limits.h>
#include <schema/DocumentOwner.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace tree_tests {
namespace {

TEST(Limits, NestingUpToTheLimitAndNotBeyond) {
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
    std::string bytes;
    onThread(64 * 1024 * 1024, [&bytes] { bytes = compiled(*load(nestedGroups(4'000))); });
    onThread(256 * 1024, [&bytes] { EXPECT_THROW(fromCompiled(bytes), std::exception); });
}

// A compiled file with that many levels: the innermost flow of a document, repeated in place.
std::string compiledGroups(std::size_t count) {
    const std::string one = compiled(*load(nestedGroups(1)));
    const std::string two = compiled(*load(nestedGroups(2)));
    const std::string three = compiled(*load(nestedGroups(3)));
    // From the second on each level is the same bytes, where the padding is the same.
    const std::size_t level = three.size() - two.size();
    const std::size_t begin = static_cast<std::size_t>(std::mismatch(one.begin(), one.end(), two.begin()).first - one.begin());
    std::string text = two.substr(0, begin);
    for (std::size_t i = 2; i < count; ++i) text += three.substr(begin, level);
    return text + two.substr(begin);
}

TEST(Limits, ACompiledFileMeetsTheLimitOfNestingToo) {
    onThread(64 * 1024 * 1024, [] {
        ASSERT_EQ(compiledGroups(100), compiled(*load(nestedGroups(100))));
        const std::size_t most = (schema::maximumDepth - 5) / 2;
        EXPECT_NO_THROW(fromCompiled(compiledGroups(most)));
        try {
            fromCompiled(compiledGroups(most + 1));
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
