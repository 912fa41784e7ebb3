#include "adapters/calc/dialog_texts.hpp"

#include <gtest/gtest.h>
#include <set>

namespace TBVNonPara::calc {

namespace {

class EveryLanguage : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Dialog, EveryLanguage, testing::Values("en-US", "de"),
                         [](const auto& param) { return std::string(param.param).substr(0, 2); });

TEST_P(EveryLanguage, NamesAllEightTestsDifferently) {
    const DialogTexts& texts = dialogTexts(GetParam());
    EXPECT_EQ(std::set<std::string_view>(texts.tests.begin(), texts.tests.end()).size(), 8U);
    EXPECT_EQ(texts.tests.size(), 8U);
}

TEST_P(EveryLanguage, GivesEachLetterToOneControlThatIsSeenAtTheSameTime) {
    const DialogTexts& texts = dialogTexts(GetParam());
    for (const std::string_view first : {texts.firstRange, texts.groupRanges, texts.dataRange}) {
        for (const std::string_view second : {texts.secondRange, texts.groupingRange}) {
            std::set<char> letters;
            for (const std::string_view label :
                 {texts.test, texts.alternative, first, second, texts.newSheet, texts.cell, texts.overwrite,
                  texts.labels, texts.descriptives, texts.ignoreTies}) {
                const std::size_t mark = label.find('~');
                ASSERT_NE(mark, std::string_view::npos) << label;
                EXPECT_TRUE(letters.insert(static_cast<char>(std::tolower(label[mark + 1]))).second) << label;
            }
        }
    }
}

TEST_P(EveryLanguage, HasThreeDifferentAlternativesForEveryTestThatTakesThem) {
    for (const TBVNPMethod method : {tbvNPMannU, tbvNPWilcoxon, tbvNPSpearman, tbvNPSign, tbvNPWWRuns}) {
        for (const bool secondRange : {false, true}) {
            const Alternatives& texts = alternativesOf(method, secondRange, GetParam());
            EXPECT_EQ(std::set<std::string_view>(texts.begin(), texts.end()).size(), 3U);
        }
    }
}

TEST(Dialog, SpeaksEnglishWhereALanguageIsMissing) {
    EXPECT_EQ(dialogTexts("fr").title, "Nonparametric Tests");
    EXPECT_EQ(dialogTexts("de-AT").title, "Nichtparametrische Tests");
}

TEST(Dialog, SaysMoreRunsWhereTheReportDoes) {
    // The report calls the second choice "Fewer Runs than Expected".
    EXPECT_EQ(alternativesOf(tbvNPWWRuns, false, "en")[tbvNPVar1GTVar2], "fewer runs than expected");
}

TEST(Dialog, NamesTheCellThatAnErrorIsAbout) {
    EXPECT_EQ(
        plainWords(tbvNPTextInData, "Data!B7 holds the text \"n/a\"; every cell must be a number.", "en"),
        "Data!B7 holds a text; every cell of the data must be a number.");
    EXPECT_EQ(plainWords(tbvNPBlankInData, "Data!A3 is blank; ...", "de"),
              "Data!A3 ist leer; jede Zelle der Daten muss eine Zahl sein.");
}

TEST(Dialog, ShowsAnUnknownErrorByItsOwnWordsOrItsNumber) {
    EXPECT_EQ(plainWords(1004, "The sheet is protected.", "en"), "The sheet is protected.");
    EXPECT_EQ(plainWords(4711, "", "de"), "Fehler 4711");
}

}  // namespace

}  // namespace TBVNonPara::calc
