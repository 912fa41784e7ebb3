#include "tbvnonpara/core/display_width.hpp"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace TBVNonPara {

namespace {

TEST(DisplayWidth, CountsTheColumnsOfATerminal) {
    EXPECT_EQ(displayWidth(""), 0U);
    EXPECT_EQ(displayWidth("Before"), 6U);
    EXPECT_EQ(displayWidth("Größe"), 5U);
    EXPECT_EQ(displayWidth("rₛ"), 2U);
    EXPECT_EQ(displayWidth("─"), 1U);
}

TEST(DisplayWidth, WideCharactersTakeTwoColumns) {
    EXPECT_EQ(displayWidth("前"), 2U);
    EXPECT_EQ(displayWidth("試験1"), 5U);
    EXPECT_EQ(displayWidth("한국"), 4U);
    EXPECT_EQ(displayWidth("Ａ"), 2U);
    EXPECT_EQ(displayWidth("😀"), 2U);
    EXPECT_EQ(displayWidth("\U00020000"), 2U);
}

TEST(DisplayWidth, CombiningAndInvisibleCharactersTakeNone) {
    EXPECT_EQ(displayWidth("e\u0301"), 1U);
    EXPECT_EQ(displayWidth("a\u200Bb"), 2U);
    EXPECT_EQ(displayWidth("\u1112\u1161\u11AB"), 2U);
    EXPECT_EQ(displayWidth("\uFEFF"), 0U);
}

TEST(OnOneLine, LineBreaksAndTabsBecomeBlanks) {
    EXPECT_EQ(onOneLine("a\nb\tc"), "a b c");
    EXPECT_EQ(onOneLine("Größe 前"), "Größe 前");
}

TEST(OnOneLine, OtherControlCharactersCannotReachATerminal) {
    EXPECT_EQ(onOneLine("\033[31mred"), "\uFFFD[31mred");
    EXPECT_EQ(onOneLine("a\u009Bb\x7F"), "a\uFFFDb\uFFFD");
}

TEST(OnOneLine, BytesThatAreNoTextBecomeReplacementCharacters) {
    EXPECT_EQ(onOneLine("a\xB5z"), "a\uFFFDz");
    EXPECT_EQ(displayWidth("a\xB5z"), 3U);
}

TEST(OnOneLine, NothingTurnsTheDirectionOfWriting) {
    EXPECT_EQ(onOneLine("a\u202Eb\u2067c\u2028d"), "a\uFFFDb\uFFFDc\uFFFDd");
    EXPECT_EQ(onOneLine("אב\u200F"), "אב\u200F");
}

TEST(Escaped, ShowsWhatWouldActOnATerminal) {
    EXPECT_EQ(escaped("a\nb\r\tc"), "a\\nb\\r\\tc");
    EXPECT_EQ(escaped("\033[31m\x7F\u009B"), "\\x1B[31m\\x7F\\x9B");
    EXPECT_EQ(escaped("\u202Eabc\u2069\u2028"), "\\u202Eabc\\u2069\\u2028");
    EXPECT_EQ(escaped("\x9B"), "\\x9B");
    EXPECT_EQ(escaped("Größe 前 😀 אב"), "Größe 前 😀 אב");
}

TEST(Shortened, KeepsBothEnds) {
    EXPECT_EQ(shortenedToWidth("abcdefghij", 10), "abcdefghij");
    EXPECT_EQ(shortenedToWidth("abcdefghijk", 10), "abcde…hijk");
    EXPECT_EQ(shortenedToWidth("試験試験試験", 7), "試…験");
    EXPECT_EQ(displayWidth(shortenedToWidth(std::string(10'000, 'a'), 80)), 80U);
    EXPECT_EQ(shortenedToWidth("abc", 1), "…");
}

TEST(Folded, CutsAtBlanksAndLongWordsAnywhere) {
    const std::vector<std::string> lines{"one two", "three", "fourfour", "four"};
    EXPECT_EQ(folded("one two three fourfourfour", 8), lines);
    EXPECT_EQ(folded("short", 8), std::vector<std::string>{"short"});
    EXPECT_EQ(folded("試験", 1), (std::vector<std::string>{"試", "験"}));
}

TEST(WithoutBlankEnd, KeepsEverythingElse) {
    EXPECT_EQ(withoutBlankEnd("P = "), "P =");
    EXPECT_EQ(withoutBlankEnd("  x"), "  x");
    EXPECT_EQ(withoutBlankEnd("   "), "");
}

}  // namespace

}  // namespace TBVNonPara
