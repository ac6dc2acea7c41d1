// Texts of documents on one line of a terminal.
#include "text/OneLine.h"

#include <gtest/gtest.h>

namespace {

using velkotx::host::oneLine;

TEST(OneLine, KeepsPlainText) {
    const char* text = "Spannung 3,6 V \xE2\x82\xAC \xC3\xA4\xC2\xA0x \\n";
    EXPECT_EQ(oneLine(text), text);
    EXPECT_EQ(oneLine(""), "");
}

TEST(OneLine, EscapesLineBreaks) {
    EXPECT_EQ(oneLine("first\nsecond\r\tthird"), "first\\nsecond\\x0D\\tthird");
}

TEST(OneLine, CutsWhiteSpaceAtTheEnd) {
    EXPECT_EQ(oneLine("  text \r\n\n"), "  text");
    EXPECT_EQ(oneLine("\n\n"), "");
}

TEST(OneLine, EscapesWhatControlsATerminal) {
    EXPECT_EQ(oneLine("\x1B[31mred\x7F"), "\\x1B[31mred\\x7F");
    EXPECT_EQ(oneLine(std::string_view("a\0b", 3)), "a\\x00b");
    EXPECT_EQ(oneLine("a\xC2\x9B" "31m"), "a\\xC2\\x9B31m");
}

TEST(OneLine, EscapesLineSeparatorsOfUnicode) {
    EXPECT_EQ(oneLine("a\xE2\x80\xA8" "b\xE2\x80\xA9" "c"), "a\\xE2\\x80\\xA8b\\xE2\\x80\\xA9c");
}

TEST(OneLine, EscapesWhatTurnsTheOrderOfCharacters) {
    EXPECT_EQ(oneLine("a\xE2\x80\xAE" "b\xE2\x81\xA6" "c\xE2\x80\x8B"), "a\\xE2\\x80\\xAEb\\xE2\\x81\\xA6c\\xE2\\x80\\x8B");
    EXPECT_EQ(oneLine("\xE2\x80\x8D\xE2\x80\x93"), "\xE2\x80\x8D\xE2\x80\x93") << "joiners and dashes are text";
}

TEST(OneLine, TakesBrokenUtf8) {
    EXPECT_EQ(oneLine("a\xC2"), "a\xC2");
    EXPECT_EQ(oneLine("\xE2\x80"), "\xE2\x80");
}

}  // namespace
