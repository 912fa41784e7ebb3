#include <gtest/gtest.h>
#include <type_traits>

#include "tbvnonpara/core/file_name.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara {
namespace {

std::u32string characters(std::string_view text) {
    std::u32string all;
    while (!text.empty()) {
        all += takeCharacter(text);
    }
    return all;
}

std::string bytes(std::u32string_view text) {
    std::string all;
    for (const char32_t character : text) {
        appendCharacter(all, character);
    }
    return all;
}

TEST(Utf8, IsTheFirstAndLastCharacterOfEachLength) {
    // clang-format off
    const std::pair<const char*, char32_t> cases[] = {
        {"\x01", 0x01}, {"\x7F", 0x7F}, {"\xC2\x80", 0x80}, {"\xDF\xBF", 0x7FF}, {"\xE0\xA0\x80", 0x800},
        {"\xED\x9F\xBF", 0xD7FF}, {"\xEE\x80\x80", 0xE000}, {"\xEF\xBF\xBF", 0xFFFF},
        {"\xF0\x90\x80\x80", 0x10000}, {"\xF4\x8F\xBF\xBF", 0x10FFFF},
    };
    // clang-format on
    for (const auto& [text, character] : cases) {
        EXPECT_EQ(characters(text), std::u32string(1, character)) << std::hex << +character;
        EXPECT_EQ(bytes(std::u32string(1, character)), text) << std::hex << +character;
        EXPECT_EQ(firstInvalidUtf8(text), std::nullopt) << std::hex << +character;
    }
}

TEST(Utf8, CountsAByteThatDoesNotBelongAsOneReplacementCharacter) {
    EXPECT_EQ(characters("a\x80z"), U"a\uFFFDz");                  // a continuation without a beginning
    EXPECT_EQ(characters("\xC3z"), U"\uFFFDz");                    // a beginning without its continuation
    EXPECT_EQ(characters("\xE2\x82"), U"\uFFFD\uFFFD");            // cut short
    EXPECT_EQ(characters("\xC0\x80"), U"\uFFFD\uFFFD");            // overlong
    EXPECT_EQ(characters("\xED\xA0\x80"), U"\uFFFD\uFFFD\uFFFD");  // a surrogate
    EXPECT_EQ(firstInvalidUtf8("a\xC3z"), 1U);
}

TEST(Utf8, IsCountedInCharactersAndInUnitsOfUtf16) {
    EXPECT_EQ(countCharacters("aé前😀"), 4U);
    EXPECT_EQ(countUtf16Units("aé前😀"), 5U);
}

TEST(Utf8, IsCutBetweenCharacters) {
    EXPECT_EQ(firstCharacters("é前a", 2), "é前");
    EXPECT_EQ(firstBytes("é前a", 5), "é前");
    EXPECT_EQ(firstBytes("é前a", 4), "é");
    EXPECT_EQ(firstBytes("é前a", 1), "");
    EXPECT_EQ(firstBytes("é前a", 60), "é前a");
}

TEST(Utf8, IsComparedWithoutRegardToCase) {
    EXPECT_TRUE(equalIgnoringCase("GRÖSSE Ωμ Жук", "grösse ΩΜ жУК"));
    EXPECT_FALSE(equalIgnoringCase("a", "á"));
}

TEST(Words, OfUsersStandInQuotesAndAreShortened) {
    EXPECT_EQ(inQuotes("Data"), "\"Data\"");
    EXPECT_EQ(shortened("abc", 3), "abc");
    EXPECT_EQ(shortened("abcd", 3), "abc...");
    EXPECT_EQ(shortened("abé", 3), "ab...");
}

TEST(Words, BeginWithACapitalWhereTheyBeginWithALetter) {
    EXPECT_EQ(capitalised("sign test"), "Sign test");
    EXPECT_EQ(capitalised("Sign"), "Sign");
    EXPECT_EQ(capitalised("é"), "é");
    EXPECT_EQ(capitalised(""), "");
}

TEST(Words, AreTrimmedOfTheBlanksNamed) {
    EXPECT_EQ(trimmed("  a b "), "a b");
    EXPECT_EQ(trimmed("\t a \n", " \t\n"), "a");
    EXPECT_EQ(trimmed("\ta"), "\ta");
    EXPECT_EQ(trimmed("   "), "");
}

TEST(FileNames, AreShownInUtf8WhateverTheirBytesAre) {
    EXPECT_EQ(shown(std::filesystem::path(u8"Größe/study.csv")), "Größe/study.csv");
    // Windows keeps names as UTF-16 and cannot hold these.
    constexpr bool namesAreBytes = std::is_same_v<std::filesystem::path::value_type, char>;
    if (namesAreBytes) {
        EXPECT_EQ(shown("a\xFFz\xC3"), "a_z_");
    }
}

}  // namespace
}  // namespace TBVNonPara
