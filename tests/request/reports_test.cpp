#include "tests/request/request_desk.hpp"

namespace TBVNonPara {
namespace {

/// A whole report, from the cells of the sheet "Data" to those that are pasted. `block` is what was copied.
struct ReportCase {
    std::string name;
    ValueGrid data;
    std::function<void(clsNonPara&)> settings;
    Support::SheetText lines;
    std::string block;

    friend std::ostream& operator<<(std::ostream& out, const ReportCase& report) {
        return out << report.name;
    }
};

std::function<void(clsNonPara&)> twoRanges(TBVNPMethod method, TBVNPTails tails, bool headers,
                                           bool descriptives, const std::string& y, const std::string& x) {
    return [=](clsNonPara& request) {
        request.LetMethod(method);
        request.LetTails(tails);
        request.LetHeaders(headers);
        request.LetOutputDescriptives(descriptives);
        request.LetIgnoreTies(true);
        request.LetYRange(y);
        request.LetXRange(x);
    };
}

std::function<void(clsNonPara&)> oneRange(TBVNPMethod method, TBVNPTails tails, bool headers,
                                          bool descriptives, const std::string& y) {
    return twoRanges(method, tails, headers, descriptives, y, "");
}

const ValueGrid pairs = {{"Before", "After"}, {5.0, 3.0}, {4.0, 4.0}, {2.0, 6.0}, {7.0, 1.0}};
const ValueGrid pairsInColumnsBAndD = {
    {blank, 5.0, blank, 3.0}, {blank, 2.0, blank, 6.0}, {blank, 7.0, blank, 1.0}};
const ValueGrid oneToNine = {{"Low", "Mid", "High"}, {1.0, 4.0, 7.0}, {2.0, 5.0, 8.0}, {3.0, 6.0, 9.0}};
const ValueGrid fourBlocks = {
    {"a", "b", "c"}, {1.0, 2.0, 3.0}, {1.0, 2.0, 3.0}, {1.0, 2.0, 3.0}, {2.0, 1.0, 3.0}};
const ValueGrid signsInOneColumn = {{"Sign"}, {1.0}, {1.0}, {1.0}, {-1.0}, {0.0}};
const ValueGrid signsInTwoColumns = {{blank, "Second"}, {5.0, 1.0}, {6.0, 2.0}, {7.0, 9.0}};
const ValueGrid coin = {{"Coin"}, {"A"}, {"A"}, {"B"}, {"B"}, {"A"}, {"B"}};
const ValueGrid doubled = {{1.0, 2.0}, {2.0, 4.0}, {3.0, 6.0}, {4.0, 8.0}};

// Probabilities: chi-square with 2 DF is exp(-x/2), with 1 DF erfc(sqrt(x/2)); F with 2 and m DF is
// (1 + 2F/m)^(-m/2); the others are counts of arrangements.
// clang-format off
const ReportCase cases[] = {
    {"MannWhitney_ByDefault_WithoutHeadersAndDescriptives", threeAndThree,
     [](clsNonPara& request) { request.LetYRange("Data!A1:A3"); request.LetXRange("Data!B1:B3"); },
     {"Mann-Whitney Test Results for:", "Set 1 Range = Data!$A$1:$A$3", "Set 2 Range = Data!$B$1:$B$3", "",
      "2-tailed Test", "U|DF 1|DF 2|P", "9|3|3|0.1"},
     "A1:D9"},
    {"MannWhitney_WithDescriptives", {{2019.0, "New"}, {1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}},
     twoRanges(tbvNPMannU, tbvNPVar1LTVar2, true, true, "Data!A1:A4", "Data!B1:B4"),
     {"Mann-Whitney Test Results for:", "Set 1 Range = Data!$A$1:$A$4", "Set 2 Range = Data!$B$1:$B$4", "",
      "Descriptive Statistics", "|Value||Rank", "|2019|New|2019|New", "|1|4|1|4", "|2|5|2|5", "|3|6|3|6",
      "Median|2|5|2|5", "Sum|6|15|6|15", "N|3|3|3|3", "",
      "1-tailed Test (2019 < New)", "U|DF 1|DF 2|P", "9|3|3|0.05"},
     "A1:E19"},
    {"Wilcoxon_WithDescriptives_LeavesTheZeroUnranked", pairs,
     twoRanges(tbvNPWilcoxon, tbvNPTwoTailed, true, true, "Data!A1:A5", "Data!B1:B5"),
     {"Wilcoxon Paired-Sample Test Results for:", "Set 1 Range = Data!$A$1:$A$5",
      "Set 2 Range = Data!$B$1:$B$5", "",
      "Descriptive Statistics", "\"\"|Before|After|Difference|Rank of |Diff||Signed Rank",
      "|5|3|2|1|1", "|4|4|0", "|2|6|-4|2|-2", "|7|1|6|3|3", "Median|4.5|3.5", "Sum|18|14", "N|4|4", "",
      "Summary of Ranks", "\"\"|Median|Sum|N", "Positive Ranks|2|4|2", "Negative Ranks|2|2|1",
      "Zero Differences (not ranked)|\"\"|\"\"|1", "",
      "2-tailed Exact Test", "T|N|P", "2|3|0.75"},
     "A1:F25"},
    {"Wilcoxon_WithoutDescriptives_StillSummarisesTheRanks", pairsInColumnsBAndD,
     twoRanges(tbvNPWilcoxon, tbvNPVar1GTVar2, false, false, "Data!B1:B3", "Data!D1:D3"),
     {"Wilcoxon Paired-Sample Test Results for:", "Set 1 Range = Data!$B$1:$B$3",
      "Set 2 Range = Data!$D$1:$D$3", "",
      "Summary of Ranks", "\"\"|Median|Sum|N", "Positive Ranks|2|4|2", "Negative Ranks|2|2|1",
      "Zero Differences|0|0|0", "",
      "1-tailed Exact Test (Column B > Column D)", "T|N|P", "2|3|0.375"},
     "A1:D15"},
    {"Spearman_WithDescriptives", doubled,
     twoRanges(tbvNPSpearman, tbvNPTwoTailed, false, true, "Data!A1:A4", "Data!B1:B4"),
     {"Spearman Rank Correlation Results for:", "Set 1 Range = Data!$A$1:$A$4",
      "Set 2 Range = Data!$B$1:$B$4", "",
      "Descriptive Statistics", "|Value||Rank", "|Column A|Column B|Column A|Column B",
      "|1|2|1|1", "|2|4|2|2", "|3|6|3|3", "|4|8|4|4", "Median|2.5|5|2.5|2.5", "Sum|10|20|10|10",
      "N|4|4|4|4", "",
      "2-tailed Test", "rs|DF|P", "1|4|0.0833333333333"},
     "A1:E20"},
    {"Spearman_Tails1_ChangesTheTitle", doubled,
     twoRanges(tbvNPSpearman, tbvNPVar1GTVar2, false, false, "Data!A1:A4", "Data!B1:B4"),
     {"Spearman Rank Correlation Results for:", "Set 1 Range = Data!$A$1:$A$4",
      "Set 2 Range = Data!$B$1:$B$4", "",
      "1-tailed Test (Positive Correlation)", "rs|DF|P", "1|4|0.0416666666667"},
     "A1:C9"},
    {"Sign_OfCodes_NamesTheVariablesVar1AndVar2", signsInOneColumn,
     oneRange(tbvNPSign, tbvNPVar1GTVar2, true, false, "Data!A1:A6"),
     {"Sign Test Results for:", "Set 1 Range = Data!$A$1:$A$6", "",
      "Counts", "1 > 2|1 = 2|1 < 2", "3|1|1", "", "1-tailed Test (Var 1 > Var 2)", "P = |0.3125"},
     "A1:C11"},
    {"Sign_OfTwoRanges_AnEmptyHeaderIsNamedByItsColumn", signsInTwoColumns,
     twoRanges(tbvNPSign, tbvNPVar1GTVar2, true, false, "Data!A1:A4", "Data!B1:B4"),
     {"Sign Test Results for:", "Set 1 Range = Data!$A$1:$A$4", "Set 2 Range = Data!$B$1:$B$4", "",
      "Counts", "1 > 2|1 = 2|1 < 2", "2|0|1", "", "1-tailed Test (Column A > Second)", "P = |0.5"},
     "A1:C12"},
    {"Sign_OfTwoRanges_WithoutHeaders", {{5.0, 1.0}, {6.0, 2.0}, {7.0, 9.0}},
     twoRanges(tbvNPSign, tbvNPVar1GTVar2, false, true, "Data!A1:A3", "Data!B1:B3"),
     {"Sign Test Results for:", "Set 1 Range = Data!$A$1:$A$3", "Set 2 Range = Data!$B$1:$B$3", "",
      "Counts", "1 > 2|1 = 2|1 < 2", "2|0|1", "", "1-tailed Test (Column A > Column B)", "P = |0.5"},
     "A1:C12"},
    {"Median_WarnsOfSmallExpectedFrequencies", oneToNine,
     oneRange(tbvNPMedian, tbvNPTwoTailed, true, false, "Data!A1:C4"),
     {"Mood Median Test Results for:", "Data Range = Data!$A$1:$C$4", "",
      "Grand Median = 5",
      "Counts", "|Low|Mid|High", "> Grand Median|0|1|3", "<= Grand Median|3|2|0", "",
      "The expcted frequencies calculated for your data",
      "violate the assumtion for the following tests that",
      "no more than 20% of values are less than 5 and that",
      "no values are less than 1.  As such, the following",
      "results must be interprested with caution and either",
      "the pooling of categories or further sampling",
      "to increase the sample size are recommended.",
      "Test Results", "Statistic|Value|DF|P", "Chi-Square|6.3|2|0.042852126867",
      "Log-Likelihood|8.54622336898|2|0.0139383438753"},
     "A1:D22"},
    {"Median_OfTwoGroups_HasBothCorrections",
     {{1.0, 5.0}, {2.0, 6.0}, {3.0, 7.0}, {4.0, 8.0}},
     oneRange(tbvNPMedian, tbvNPTwoTailed, false, true, "Data!A1:B4"),
     {"Mood Median Test Results for:", "Data Range = Data!$A$1:$B$4", "",
      "Descriptive Statistics", "|Value||Rank", "|Column A|Column B|Column A|Column B",
      "|1|5|1|5", "|2|6|2|6", "|3|7|3|7", "|4|8|4|8", "Median|2.5|6.5|2.5|6.5", "Sum|10|26|10|26",
      "N|4|4|4|4", "",
      "Grand Median = 4.5",
      "Counts", "|Column A|Column B", "> Grand Median|0|4", "<= Grand Median|4|0", "",
      "The expcted frequencies calculated for your data",
      "violate the assumtion for the following tests that",
      "no more than 20% of values are less than 5 and that",
      "no values are less than 1.  As such, the following",
      "results must be interprested with caution and either",
      "the pooling of categories or further sampling",
      "to increase the sample size are recommended.",
      "Test Results", "Statistic|Value|DF|P", "Chi-Square|8|1|0.00467773498105",
      "Yates Correction|4.5|1|0.0338948535247", "Cochran Correction|4.5|1|0.0338948535247",
      "Log-Likelihood|11.090354889|1|0.000867778758698"},
     "A1:E35"},
    {"Friedman_WithDescriptives", fourBlocks,
     oneRange(tbvNPFriedman, tbvNPTwoTailed, true, true, "Data!A1:C5"),
     {"Friedman Test Results for:", "Data Range = Data!$A$1:$C$5", "",
      "Descriptive Statistics", "|Value|||Within Block Rank", "|a|b|c|a|b|c",
      "|1|2|3|1|2|3", "|1|2|3|1|2|3", "|1|2|3|1|2|3", "|2|1|3|2|1|3",
      "Median|1|2|3|1|2|3", "Sum|5|7|12|5|7|12", "N|4|4|4|4|4|4", "",
      "Test Results", "Statistic|Value|DF 1|DF 2|P", "Chi-Square|6.5|2|-|0.0387742078317",
      "F|13|2|6|0.006591796875"},
     "A1:G20"},
    {"KruskalWallis_WithoutDescriptives", oneToNine,
     oneRange(tbvNPKWallis, tbvNPTwoTailed, true, false, "Data!A1:C4"),
     {"Kruskal-Wallis Test Results for:", "Data Range = Data!$A$1:$C$4", "",
      "Test Results", "Statistic|Value|DF 1|DF 2|P", "Chi-Square|7.2|2|-|0.0273237224473",
      "F|27|2|5|0.00209071570576"},
     "A1:E9"},
    {"KruskalWallis_OfSeveralAreas_NamesEveryColumn",
     {{"Low", blank, "Mid", "High"}, {1.0, blank, 4.0, 7.0}, {2.0, blank, 5.0, 8.0}, {3.0, blank, 6.0, 9.0}},
     oneRange(tbvNPKWallis, tbvNPTwoTailed, true, true, "Data!A1:A4,Data!C1:D4"),
     {"Kruskal-Wallis Test Results for:", "Data Range = Data!$A$1:$A$4,$C$1:$D$4", "",
      "Descriptive Statistics", "|Value|||Rank", "|Low|Mid|High|Low|Mid|High",
      "|1|4|7|1|4|7", "|2|5|8|2|5|8", "|3|6|9|3|6|9", "Median|2|5|8|2|5|8", "Sum|6|15|24|6|15|24",
      "N|3|3|3|3|3|3", "",
      "Test Results", "Statistic|Value|DF 1|DF 2|P", "Chi-Square|7.2|2|-|0.0273237224473",
      "F|27|2|5|0.00209071570576"},
     "A1:G19"},
    {"KruskalWallis_OfUnequalAreas_WithoutHeaders",
     {{1.0, 4.0, 7.0}, {2.0, 5.0, 8.0}, {3.0, 6.0, 9.0}, {"x", "x", "x"}},
     oneRange(tbvNPKWallis, tbvNPTwoTailed, false, false, "Data!A1:A2,Data!B1:B3,Data!C1:C2"),
     // Ranks 1-2, 3-5, 6-7: S = 9/2 + 144/3 + 169/2 = 137, H = 12*137/56 - 24 = 75/14; F = 4H/(2(6 - H)).
     {"Kruskal-Wallis Test Results for:", "Data Range = Data!$A$1:$A$2,$B$1:$B$3,$C$1:$C$2", "",
      "Test Results", "Statistic|Value|DF 1|DF 2|P", "Chi-Square|5.35714285714|2|-|0.0686611715131",
      "F|16.6666666667|2|3|0.0237259722027"},
     "A1:E9"},
    {"Runs_WithDescriptivesAskedFor_ChangesNothing", coin,
     oneRange(tbvNPWWRuns, tbvNPTwoTailed, true, true, "Data!A1:A7"),
     {"Wald-Wolfowitz Runs Test Results for:", "Data Range = Data!$A$1:$A$7", "",
      "Counts", "Group|Count", "A|3", "B|3", "", "Runs", "Observed|4", "Expected|4", "", "",
      "2-tailed Test", "Z adjusted|P", "-0.456435464588|1.35192313186"},
     "A1:D18"},
};
// clang-format on

class Report : public ::testing::TestWithParam<ReportCase> {};

TEST_P(Report, IsPastedAsItWasBuilt) {
    RequestDesk desk(GetParam().data);
    GetParam().settings(desk.request);
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.lastSheet(), GetParam().lines);
    EXPECT_EQ(desk.sheets().size(), 3U);
}

TEST_P(Report, IsTheSameAtAPlaceOnAUsedSheet) {
    RequestDesk desk(GetParam().data);
    GetParam().settings(desk.request);
    desk.request.LetOutputRange("Out!C4:D9");
    EXPECT_EQ(desk.run(), Support::Raised());
    EXPECT_EQ(desk.cells("Out!C4:N60"), GetParam().lines);
    EXPECT_EQ(desk.cells("Out!A1:B60"), Support::SheetText());
}

TEST_P(Report, IsAsLargeAsItsBlock) {
    RequestDesk desk(GetParam().data);
    GetParam().settings(desk.request);
    class SizeOnly : public DataCheck {
     public:
        explicit SizeOnly(std::string& size) : m_Size(size) {}
        void CheckData(const RangeRef&, bool, Long&, Long&, Long&, bool&) const override {}
        void CheckXData(const RangeRef&, bool, Long&, Long&, Long&) const override {}
        void CheckRunsData(const RangeRef&, bool) const override {}
        void CheckOutputArea(const RangeRef& range, Long columns, Long rows, bool) const override {
            const RangeRef last = range->GetCells(rows, columns);
            m_Size = Support::plainAddress(range->GetWorksheet()->GetRange(range, last));
        }

     private:
        std::string& m_Size;
    };
    std::string size;
    desk.companions.createDataCheck = [&] { return makeObject<SizeOnly>(size); };
    clsNonPara request(desk.companions);
    GetParam().settings(request);
    request.Results();
    EXPECT_EQ(size, GetParam().block);
}

INSTANTIATE_TEST_SUITE_P(EveryTest, Report, ::testing::ValuesIn(cases),
                         [](const auto& test) { return test.param.name; });

TEST(WilcoxonReport, OfMoreThanFiftyPairsShowsTheApproximateSet) {
    ValueGrid data(51, 2);
    for (Long i = 1; i <= 51; ++i) {
        data(i, 1) = toDouble(2 * i);
        data(i, 2) = toDouble(i);
    }
    RequestDesk desk(data);
    twoRanges(tbvNPWilcoxon, tbvNPTwoTailed, false, false, "Data!A1:A51", "Data!B1:B51")(desk.request);
    EXPECT_EQ(desk.run(), Support::Raised());
    // T = 0 against a mean of 663 and a variance of 11381.5.
    const Support::SheetText lines = desk.lastSheet();
    ASSERT_EQ(lines.size(), 13U);
    EXPECT_EQ(lines[10], "2-tailed Asymptopic Test");
    EXPECT_EQ(lines[11], "Z|N|P");
    EXPECT_EQ(lines[12], "6.21460853339|51|5.14527605172e-10");
}

}  // namespace
}  // namespace TBVNonPara
