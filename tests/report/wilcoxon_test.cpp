#include "tests/report/section_case.hpp"

namespace TBVNonPara {
namespace {

const Labels wilcoxonNames = {"Before", "After"};
const Grid<double> pairs = {{5, 3}, {4, 4}, {1, 6}};

std::function<void(clsNonParaOutput&)> descriptives(const Grid<double>& differences) {
    return [differences](clsNonParaOutput& writer) {
        writer.OutputWilcoxonDescriptives(wilcoxonNames, pairs, {4, 4}, {10, 13}, {3, 3}, differences);
    };
}

const std::vector<std::string> descriptivesFormatting = {
    "FormatTitle A5 False",       "FormatTable A6:F6 False", "FormatTable A6:F9 False",
    "FormatTable A6:F12 True",    "FormatBody B7:F12 False", "NumberFormat E7:F12 \"0.0\"",
    "NumberFormat B12:F12 \"0\"",
};

// clang-format off
const SectionCase descriptivesCases[] = {
    {"AZeroDifferenceLeftOutOfTheRanking_LeavesBothRanksEmpty",
     descriptives({{2, 1, 1}, {0, 0, 0}, {-5, 2, -2}}),
     {"Descriptive Statistics", "\"\"|Before|After|Difference|Rank of |Diff||Signed Rank", "|5|3|2|1|1",
      "|4|4|0", "|1|6|-5|2|-2", "Median|4|4", "Sum|10|13", "N|3|3"},
     descriptivesFormatting, "A1:F13"},
    {"ARankedZeroDifference_ShowsItsRank",
     descriptives({{2, 2, 2}, {0, 1, 0}, {-5, 3, -3}}),
     {"Descriptive Statistics", "\"\"|Before|After|Difference|Rank of |Diff||Signed Rank", "|5|3|2|2|2",
      "|4|4|0|1|0", "|1|6|-5|3|-3", "Median|4|4", "Sum|10|13", "N|3|3"},
     descriptivesFormatting, "A1:F13"},
};
// clang-format on

class WilcoxonDescriptives : public ::testing::TestWithParam<SectionCase> {};

TEST_P(WilcoxonDescriptives, ListsThePairs) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, WilcoxonDescriptives, ::testing::ValuesIn(descriptivesCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

std::function<void(clsNonParaOutput&)> ranks(double zeroMedian, double zeroSum, Long zeros) {
    return [=](clsNonParaOutput& writer) {
        writer.OutputWilcoxonRanks({2.5, 3, zeroMedian}, {7.5, 3, zeroSum}, {3, 1, zeros}, {});
    };
}

const std::vector<std::string> ranksFormatting = {
    "FormatTitle A5 False",   "FormatTable A6:D6 False",  "FormatTable A6:D9 True",
    "FormatBody B7:D9 False", "NumberFormat D7:D9 \"0\"",
};

Support::SheetText ranksTable(const std::string& zeroRow) {
    return {"Summary of Ranks", "\"\"|Median|Sum|N", "Positive Ranks|2.5|7.5|3", "Negative Ranks|3|3|1",
            zeroRow};
}

// clang-format off
const SectionCase ranksCases[] = {
    {"ZerosLeftOut_ShowOnlyTheirCount", ranks(0, 0, 2),
     ranksTable("Zero Differences (not ranked)|\"\"|\"\"|2"), ranksFormatting, "A1:D10"},
    {"RankedZeros_ShowAllThreeValues",  ranks(1.5, 3, 2),
     ranksTable("Zero Differences|1.5|3|2"), ranksFormatting, "A1:D10"},
    {"NoZeros_ShowWhatTheEngineGave",   ranks(0, 0, 0),
     ranksTable("Zero Differences|0|0|0"), ranksFormatting, "A1:D10"},
};
// clang-format on

class WilcoxonRanks : public ::testing::TestWithParam<SectionCase> {};

TEST_P(WilcoxonRanks, SummarisesTheThreeKindsOfDifference) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, WilcoxonRanks, ::testing::ValuesIn(ranksCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

std::function<void(clsNonParaOutput&)> wilcoxonTestTable(const Labels& labels, TBVNPTails tails,
                                                         bool useApprox) {
    return [=](clsNonParaOutput& writer) {
        writer.OutputWilcoxonTest(labels, 3.5, {12, 99}, 0.25, tails, useApprox);
    };
}

const std::vector<std::string> testFormatting = {"FormatTitle A5 False", "FormatTable A6:C6 False",
                                                 "FormatBody A7:C7 False", "NumberFormat B7 \"0\""};

// clang-format off
const SectionCase testCases[] = {
    {"Exact_TwoTailed",           wilcoxonTestTable({}, tbvNPTwoTailed, false),
     {"2-tailed Exact Test", "T|N|P", "3.5|12|0.25"}, testFormatting, "A1:C8"},
    {"Exact_FirstGreater",        wilcoxonTestTable(wilcoxonNames, tbvNPVar1GTVar2, false),
     {"1-tailed Exact Test (Before > After)", "T|N|P", "3.5|12|0.25"}, testFormatting, "A1:C8"},
    {"Approximate_TwoTailed_KeepsItsSpelling", wilcoxonTestTable({}, tbvNPTwoTailed, true),
     {"2-tailed Asymptopic Test", "Z|N|P", "3.5|12|0.25"}, testFormatting, "A1:C8"},
    {"Approximate_FirstGreater",  wilcoxonTestTable(wilcoxonNames, tbvNPVar1GTVar2, true),
     {"1-tailed Asymptopic Test (Before > After)", "Z|N|P", "3.5|12|0.25"}, testFormatting, "A1:C8"},
    {"Approximate_FirstSmaller",  wilcoxonTestTable(wilcoxonNames, tbvNPVar1LTVar2, true),
     {"1-tailed Asymptopic Test (Before < After)", "Z|N|P", "3.5|12|0.25"}, testFormatting, "A1:C8"},
};
// clang-format on

class WilcoxonTestTable : public ::testing::TestWithParam<SectionCase> {};

TEST_P(WilcoxonTestTable, NamesTheMethod) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, WilcoxonTestTable, ::testing::ValuesIn(testCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

TEST(WilcoxonSections, ThreeSectionsAreSixColumnsWide) {
    ReportDesk desk;
    descriptives({{2, 1, 1}, {0, 0, 0}, {-5, 2, -2}})(desk.writer);
    desk.writer.InsertBlankLines(1);
    ranks(0, 0, 1)(desk.writer);
    desk.writer.InsertBlankLines(1);
    wilcoxonTestTable(wilcoxonNames, tbvNPTwoTailed, false)(desk.writer);
    desk.writer.InsertBlankLines(1);
    EXPECT_EQ(Support::plainAddress(desk.writer.GetResults()), "A1:F20");
}

TEST(WilcoxonSectionQuirks, TheDescriptivesSetTheWidthToSixAlsoAfterAWiderSection) {
    ReportDesk desk;
    desk.writer.OutputMedianCounts(Labels(7), ValueGrid(3, 8));
    descriptives({{2, 1, 1}, {0, 0, 0}, {-5, 2, -2}})(desk.writer);
    EXPECT_EQ(Support::plainAddress(desk.writer.GetResults()), "A1:F13");
}

TEST(WilcoxonSectionErrors, CellsBeforeTheMissingDifferenceAreWritten) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] {
                  descriptives({{2, 1, 1}, {0, 0, 0}})(desk.writer);
              }),
              Support::in("clsNonParaOutput.OutputWilcoxonDescriptives", 9));
    EXPECT_EQ(desk.cells("B3:F5"), (Support::SheetText{"5|3|2|1|1", "4|4|0", "1|6"}));
}

TEST(WilcoxonSectionErrors, CarryTheSectionsNames) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] {
                  desk.writer.OutputWilcoxonRanks({1, 2}, {1, 2}, {1, 2}, {});
              }),
              Support::in("clsNonParaOutput.OutputWilcoxonRanks", 9));
    EXPECT_EQ(
        Support::raisedBy([&] { desk.writer.OutputWilcoxonTest({}, 1, {1}, 1, tbvNPVar1LTVar2, true); }),
        Support::in("clsNonParaOutput.OutputWilcoxonTest", 9));
}

}  // namespace
}  // namespace TBVNonPara
