// The line that somebody is typing, and its characters.
#include "operator/LineEditor.h"
#include "text/Columns.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using velkotx::host::codeOfUtf8;
using velkotx::host::columnsOf;
using velkotx::host::isUtf8Character;
using velkotx::host::LineEditor;

class LineEditorTest : public testing::Test {
protected:
    // What is shown for it.
    std::string type(const std::string& bytes) {
        std::string echo;
        for (const char byte : bytes)
            echo += editor_.type(byte).echo;
        return echo;
    }

    LineEditor editor_;
};

TEST_F(LineEditorTest, TakesText) {
    EXPECT_EQ(type("set \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x9A\x97"), "set \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x9A\x97");
    EXPECT_EQ(editor_.type('\r').key, LineEditor::Key::enter);
    EXPECT_EQ(editor_.take(), "set \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x9A\x97");
    EXPECT_EQ(editor_.text(), "");
    EXPECT_EQ(editor_.type('\n').key, LineEditor::Key::enter);
}

TEST_F(LineEditorTest, ErasesCharactersWordsAndLines) {
    EXPECT_EQ(type("a\xE2\x82\xAC\x7F"), "a\xE2\x82\xAC\b \b");
    EXPECT_EQ(editor_.text(), "a");
    EXPECT_EQ(type("\b\b"), "\b \b") << "nothing stands ahead of the line";
    type("one two  \x17");
    EXPECT_EQ(editor_.text(), "one ");
    EXPECT_EQ(type("\x15"), "\b\b\b\b    \b\b\b\b");
    EXPECT_EQ(editor_.text(), "");
    EXPECT_EQ(type("\x15\x17"), "");
    EXPECT_EQ(type("  \x17"), "  \b\b  \b\b");
}

TEST_F(LineEditorTest, ErasesTheColumnsOfACharacter) {
    type("a\xE4\xB8\xAD\xEA\xB0\x80\xF0\x9F\x9A\x97");  // an ideograph, a syllable of Hangul, a picture
    for (const char* left : {"a\xE4\xB8\xAD\xEA\xB0\x80", "a\xE4\xB8\xAD", "a"}) {
        EXPECT_EQ(type("\x7F"), "\b\b  \b\b");
        EXPECT_EQ(editor_.text(), left);
    }
    EXPECT_EQ(type("\x7F"), "\b \b");
    type("a \xE4\xB8\xAD" "b");
    EXPECT_EQ(type("\x17"), "\b\b\b   \b\b\b");
    EXPECT_EQ(editor_.text(), "a ");
}

TEST_F(LineEditorTest, ErasesAMarkFromTheCharacterUnderIt) {
    type("xe\xCC\x81\xCC\xA3");
    EXPECT_EQ(type("\x7F"), "\be\xCC\x81");
    EXPECT_EQ(type("\x7F"), "\be");
    EXPECT_EQ(type("\x7F"), "\b \b");
    type("\xE3\x81\x8B\xE3\x82\x99");  // a wide one with its mark
    EXPECT_EQ(type("\x7F"), "\b\b\xE3\x81\x8B");
    EXPECT_EQ(type("\x15"), "\b\b\b   \b\b\b");
    type("\xCC\x81");
    EXPECT_EQ(type("\x7F"), "") << "it stood on the prompt";
    EXPECT_EQ(editor_.text(), "");
}

TEST_F(LineEditorTest, ErasesManyMarksAtOnce) {
    type("e");
    for (std::size_t count = 1; count < LineEditor::longest / 2; ++count)
        type("\xCC\x81");
    EXPECT_EQ(type("\x15"), "\b \b");
    EXPECT_EQ(editor_.text(), "");
}

TEST(Utf8, TellsTheNumber) {
    EXPECT_EQ(codeOfUtf8("a"), U'a');
    EXPECT_EQ(codeOfUtf8("\xC3\xA4"), U'\u00E4');
    EXPECT_EQ(codeOfUtf8("\xE2\x82\xAC"), U'\u20AC');
    EXPECT_EQ(codeOfUtf8("\xF0\x9F\x9A\x97"), U'\U0001F697');
    EXPECT_EQ(codeOfUtf8("\xE2\x82"), std::nullopt);
}

TEST(Columns, KnowsCharacters) {
    for (const char* narrow : {"a", "\xC3\xA4", "\xC2\xAD", "\xE2\x82\xAC", "\xEF\xBD\xB1", "\xEE\x80\x80", "\xFF"})
        EXPECT_EQ(columnsOf(narrow), 1U) << narrow;
    for (const char* wide : {"\xE1\x84\x80", "\xE3\x81\x82", "\xE4\xB8\xAD", "\xEA\xB0\x80", "\xEF\xBC\xA1", "\xF0\x9F\x9A\x97"})
        EXPECT_EQ(columnsOf(wide), 2U) << wide;
    for (const char* mark : {"", "\xCC\x81", "\xE2\x83\x9D", "\xE2\x80\x8D", "\xE1\x85\xA1"})
        EXPECT_EQ(columnsOf(mark), 0U) << mark;
}

TEST_F(LineEditorTest, EndsOnAnEmptyLineOnly) {
    EXPECT_EQ(editor_.type('\x04').key, LineEditor::Key::end);
    type("a");
    EXPECT_EQ(editor_.type('\x04').key, LineEditor::Key::none);
    EXPECT_EQ(editor_.text(), "a");
}

TEST_F(LineEditorTest, SwallowsKeysOfSeveralBytes) {
    EXPECT_EQ(type("a\x1B[A\x1B[1;5C\x1BOP\x1B[200~b\x1B" "fc"), "abc");
    EXPECT_EQ(editor_.text(), "abc");
    EXPECT_EQ(type("\x1B\x7F"), "");
    type("\x1B\n");
    EXPECT_EQ(editor_.text(), "abc");
}

TEST_F(LineEditorTest, TakesNothingThatIsNoText) {
    EXPECT_EQ(type("a\xE4" "b"), "ab") << "Latin-1";
    EXPECT_EQ(type("\xFF\xC2\x9B\x01\xC0\x80"), "\a\a\a\a\a");
    EXPECT_EQ(type("\tc"), " c");
    EXPECT_EQ(editor_.text(), "ab c");
}

TEST_F(LineEditorTest, HasAnEnd) {
    EXPECT_EQ(type(std::string(LineEditor::longest, 'x')).size(), LineEditor::longest);
    EXPECT_EQ(type("xy"), "\a\a");
    EXPECT_EQ(editor_.text().size(), LineEditor::longest);
    EXPECT_EQ(editor_.type('\n').key, LineEditor::Key::enter);
}

TEST(Utf8, KnowsCharacters) {
    for (const char* good : {"a", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEF\xBF\xBF", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(isUtf8Character(good)) << good;
    for (const char* bad : {"", "ab", "\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
                            "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"})
        EXPECT_FALSE(isUtf8Character(bad)) << bad;
}

}  // namespace
