#include "adapters/calc/dialog_texts.hpp"

#include <gtest/gtest.h>
#include <set>

#include "adapters/calc/refusal_words.hpp"

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
                 {texts.test, texts.alternative, texts.groupsInColumn, first, second, texts.missing,
                  texts.visibleRows, texts.newSheet, texts.cell, texts.overwrite, texts.labels,
                  texts.descriptives, texts.ignoreTies, texts.details, texts.confidence, texts.adjustment,
                  texts.picture, texts.live}) {
                const std::size_t mark = label.find('~');
                ASSERT_NE(mark, std::string_view::npos) << label;
                EXPECT_TRUE(letters.insert(static_cast<char>(std::tolower(label[mark + 1]))).second) << label;
            }
        }
    }
}

TEST_P(EveryLanguage, GivesEachLetterToOneControlOfATableInLongFormAsWell) {
    const DialogTexts& texts = dialogTexts(GetParam());
    for (const std::string_view ticks : {texts.groupTicks, texts.twoGroupTicks}) {
        std::set<char> letters;
        for (const std::string_view label :
             {texts.test,    texts.alternative, texts.groupsInColumn, texts.valueRange,   texts.groupRange,
              ticks,         texts.blockRange,  texts.missing,        texts.visibleRows,  texts.newSheet,
              texts.cell,    texts.overwrite,   texts.labels,         texts.descriptives, texts.ignoreTies,
              texts.details, texts.confidence,  texts.adjustment,     texts.picture,      texts.live}) {
            const std::size_t mark = label.find('~');
            ASSERT_NE(mark, std::string_view::npos) << label;
            EXPECT_TRUE(letters.insert(static_cast<char>(std::tolower(label[mark + 1]))).second) << label;
        }
    }
}

TEST_P(EveryLanguage, HasWordsForWhateverKeepsFiguresFromFollowingTheData) {
    const DialogTexts& texts = dialogTexts(GetParam());
    std::set<std::string> all{""};
    for (int obstacle = static_cast<int>(LiveObstacle::GroupsInColumn);
         obstacle <= static_cast<int>(LiveObstacle::NoAutomaticCalculation); ++obstacle) {
        const std::string words = liveWords(texts, {static_cast<LiveObstacle>(obstacle), {}});
        EXPECT_TRUE(all.insert(words).second) << words;
        EXPECT_EQ(words.find('%'), std::string::npos) << words;
    }
}

TEST_P(EveryLanguage, HasThreeDifferentAlternativesForEveryTestThatTakesThem) {
    for (const TBVNPMethod method : {tbvNPMannU, tbvNPWilcoxon, tbvNPSpearman, tbvNPSign, tbvNPWWRuns}) {
        for (const bool secondRange : {false, true}) {
            for (const SampleNames& names : {SampleNames(), SampleNames{"Control", "Treated"}}) {
                const Alternatives texts = alternativesOf(method, secondRange, names, GetParam());
                EXPECT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), 3U);
                EXPECT_EQ(texts[tbvNPVar1GTVar2].find('%'), std::string::npos);
            }
        }
    }
}

TEST(Dialog, SaysWhyFiguresDoNotFollowTheData) {
    const DialogTexts& english = dialogTexts("en");
    const DialogTexts& german = dialogTexts("de");
    EXPECT_EQ(liveLabel(english, LiveObstacle::None), "Keep figures live: they follo~w the data");
    EXPECT_EQ(liveLabel(english, LiveObstacle::VisibleRows),
              "Keep figures live (not with visible rows only)");
    EXPECT_EQ(liveLabel(german, LiveObstacle::UnrankedZeros),
              "Kennwerte als Formeln (nicht bei Nulldifferenzen ohne Rang)");
    EXPECT_EQ(
        liveWords(english, {LiveObstacle::SeveralAreas, {}}),
        "The report was placed, but its figures do not follow the data: a formula takes one column for each "
        "variable.");
    EXPECT_EQ(
        liveWords(german, {LiveObstacle::None, {"U", "P"}}),
        "Der Bericht ist eingefügt. Für diese Kennwerte ergibt keine Formel dasselbe, sie bleiben Zahlen: "
        "U, P.");
    EXPECT_EQ(liveWords(english, {}), "");
}

TEST(Dialog, SaysHowManyRowsAreHidden) {
    EXPECT_EQ(visibleRowsLabel(dialogTexts("en"), 3, 10),
              "~Visible rows only (3 of 10 are filtered out or hidden)");
    EXPECT_EQ(visibleRowsLabel(dialogTexts("de"), 3, 10),
              "Nur ~sichtbare Zeilen (3 von 10 sind gefiltert oder ausgeblendet)");
}

reshaping::Account accountOf(reshaping::Unit unit, std::size_t missing, std::size_t units,
                             std::size_t unnamed) {
    reshaping::Account account;
    account.unit = unit;
    account.missing = missing;
    account.units = units;
    account.unnamed = unnamed;
    account.rows = 71;
    return account;
}

TEST(Dialog, SaysHowManyValuesPairsOrBlocksWouldBeLeftOut) {
    const DialogTexts& german = dialogTexts("de");
    const DialogTexts& english = dialogTexts("en");
    EXPECT_EQ(missingLabel(english, accountOf(reshaping::Unit::Value, 37, 153, 0)),
              "Leave out ~missing values (37 of 153 values)");
    EXPECT_EQ(missingLabel(english, accountOf(reshaping::Unit::Pair, 1, 20, 2)),
              "Leave out ~missing values (1 of 20 pairs, 2 of 71 rows without a name)");
    EXPECT_EQ(missingLabel(german, accountOf(reshaping::Unit::Block, 1, 20, 0)),
              "~Fehlende Werte auslassen (1 von 20 Blöcken)");
    EXPECT_EQ(missingLabel(german, accountOf(reshaping::Unit::Element, 0, 20, 3)),
              "~Fehlende Werte auslassen (3 von 71 Zeilen ohne Namen)");
}

TEST(Dialog, SaysInGermanWhatIsWrongWithATable) {
    using reshaping::Reason;
    using reshaping::Refusal;
    EXPECT_EQ(refusalWords(Refusal(tbvNPTextInData, "x").about(Reason::NotANumber, {"Data!B5"}), "de"),
              "Data!B5 enthält keine Zahl; jeder Wert muss eine Zahl sein.");
    EXPECT_EQ(refusalWords(Refusal(tbvNPBlankInData, "x", reshaping::Remedy::OmitMissing)
                               .about(Reason::ValuesMissing, {"Data!100% a", "2", "9", "Data!B5"}),
                           "de"),
              "Fehlende Werte in Data!100% a: 2 von 9, zuerst in Data!B5. Bitte „Fehlende Werte auslassen“ "
              "ankreuzen.");
    EXPECT_EQ(refusalWords(
                  Refusal(tbvNPNoData, "No value is left of Data!B.", reshaping::Remedy::OmitMissing), "en"),
              "No value is left of Data!B. Tick \"Leave out missing values\".");
}

TEST(Dialog, SaysWhatHelpsAgainstARefusal) {
    using reshaping::Remedy;
    const DialogTexts& texts = dialogTexts("en");
    EXPECT_EQ(remedyText(texts, Remedy::PickGroups), "Tick two groups.");
    EXPECT_EQ(remedyText(texts, Remedy::NameBlocks),
              "Choose the range that says which values belong together.");
    EXPECT_EQ(remedyText(texts, Remedy::SplitValues), "Tick \"Groups in one column\".");
    EXPECT_EQ(remedyText(texts, Remedy::CorrectData), "");
}

TEST(Dialog, HasGermanWordsForEveryReasonOfARefusal) {
    const std::vector<std::string> facts(5, "x");
    for (int reason = static_cast<int>(reshaping::Reason::Other) + 1;
         reason <= static_cast<int>(reshaping::Reason::UnequalColumns); ++reason) {
        const auto refusal =
            reshaping::Refusal(tbvNPNoData, "English").about(static_cast<reshaping::Reason>(reason), facts);
        EXPECT_EQ(refusalWords(refusal, "de").find("English"), std::string::npos) << reason;
    }
}

TEST(Dialog, SpeaksEnglishWhereALanguageIsMissing) {
    EXPECT_EQ(dialogTexts("fr").title, "Nonparametric Tests");
    EXPECT_EQ(dialogTexts("de-AT").title, "Nichtparametrische Tests");
}

TEST(Dialog, NamesTheSamplesInTheAlternatives) {
    const SampleNames names{"Control", "100 % new"};
    const auto larger = [&](TBVNPMethod method, std::string_view language) {
        return alternativesOf(method, true, names, language)[tbvNPVar1GTVar2];
    };
    EXPECT_EQ(larger(tbvNPMannU, "en"), "Control tends to be larger");
    EXPECT_EQ(larger(tbvNPMannU, "de"), "Control tendenziell größer");
    EXPECT_EQ(larger(tbvNPWilcoxon, "en"), "Control mostly larger than 100 % new");
    EXPECT_EQ(larger(tbvNPSign, "de"), "Control meist größer als 100 % new");
    EXPECT_EQ(larger(tbvNPSpearman, "en"), "they rise together");
    EXPECT_EQ(alternativesOf(tbvNPSign, false, names, "en")[tbvNPVar1GTVar2], "more plus than minus");
}

TEST(Dialog, ShortensLongNamesInTheAlternatives) {
    const SampleNames names{"Concentration before treatment\n(mg/l)", "Später"};
    const std::string text = alternativesOf(tbvNPWilcoxon, true, names, "en")[tbvNPVar1LTVar2];
    EXPECT_NE(text.find("…"), std::string::npos) << text;
    EXPECT_EQ(text.find('\n'), std::string::npos);
    EXPECT_TRUE(text.starts_with("Conc")) << text;
    EXPECT_TRUE(text.ends_with("mostly smaller than Später")) << text;
}

TEST(Dialog, SaysMoreRunsWhereTheReportDoes) {
    // The report calls the second choice "Fewer Runs than Expected".
    EXPECT_EQ(alternativesOf(tbvNPWWRuns, false, {}, "en")[tbvNPVar1GTVar2], "fewer runs than expected");
}

std::string words(const Error& error, TBVNPMethod method, std::string_view language) {
    return plainWords(error, method, {"this test", "Data!A1:A9", "Data!B1:B9"}, language);
}

TEST(Dialog, NamesTheCellThatAnErrorIsAbout) {
    const std::string text = "Data!B7 holds the text \"n/a\"; every cell must be a number.";
    EXPECT_EQ(words(Error(tbvNPTextInData, text), tbvNPMannU, "en"), text);
    EXPECT_EQ(words(Error(tbvNPBlankInData, "Data!A3 is blank; ..."), tbvNPMannU, "de"),
              "Data!A3 ist leer; jede Zelle der Daten muss eine Zahl sein.");
}

TEST(Dialog, ExplainsABareNumberInTheWordsOfTheLibrary) {
    EXPECT_EQ(
        words(Error(tbvNPUnequalPairs), tbvNPWilcoxon, "en"),
        "The two ranges differ in their number of rows: Data!A1:A9 and Data!B1:B9. This test takes pairs "
        "row by row; complete or remove the rows without a partner.");
}

TEST(Dialog, SaysThatGroupsAreMissingWhereThereIsNoContingencyTable) {
    EXPECT_EQ(
        words(Error(tbvNPNoContingencyTable, "The contingency table holds no observation: every count is 0."),
              tbvNPMedian, "de"),
        "Es sind weniger als zwei Gruppen, oder keine enthält einen Wert; bitte mindestens zwei Gruppen mit "
        "Werten angeben.");
    EXPECT_EQ(
        words(Error(tbvNPNoContingencyTable, "The contingency table holds no observation: every count is 0."),
              tbvNPMedian, "en"),
        "The contingency table holds no observation: every count is 0.");
}

TEST(Dialog, TellsTheCauseOfARuntimeErrorByTheTest) {
    EXPECT_EQ(
        words(Error(11, "Division by zero"), tbvNPWWRuns, "en"),
        "The cells of Data!A1:A9 are all equal, or all different, so the number of runs is certain. The test "
        "needs categories that repeat.");
    EXPECT_EQ(words(Error(11, "Division by zero"), tbvNPMannU, "de"),
              "Alle Werte sind gleich; es gibt nichts in eine Rangfolge zu bringen.");
}

TEST(Dialog, HasGermanWordsForEveryCause) {
    for (int cause = static_cast<int>(Cause::Unknown) + 1; cause <= static_cast<int>(Cause::RunsAreCertain);
         ++cause) {
        EXPECT_FALSE(germanWords(static_cast<Cause>(cause)).empty()) << cause;
    }
}

TEST(Dialog, ShowsAnUnknownErrorByItsOwnWordsOrItsNumber) {
    EXPECT_EQ(words(Error(1004, "The sheet is protected."), tbvNPMannU, "en"), "The sheet is protected.");
    EXPECT_EQ(words(Error(4711), tbvNPMannU, "de"), "Fehler 4711");
}

}  // namespace

}  // namespace TBVNonPara::calc
