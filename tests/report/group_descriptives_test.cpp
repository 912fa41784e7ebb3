#include "tests/report/section_case.hpp"

namespace TBVNonPara {
namespace {

/// Two groups of three and two values.
void groupsWriteTable(clsNonParaOutput& writer, const Labels& labels, const Array<Long>& nsRaw,
                      TBVNPMethod method) {
    const Grid<double> data = {{1.5, 7}, {2.5, 2.5}, {4, 0}};
    const Grid<double> ranks = {{1, 5}, {2.5, 2.5}, {4, 0}};
    writer.OutputMWDescriptives(labels, data, {2.5, 4.75}, {8, 9.5}, nsRaw, ranks, {2.5, 3.75}, {7.5, 7.5},
                                {3, 2}, method);
}

std::function<void(clsNonParaOutput&)> groupsTable(TBVNPMethod method) {
    return [method](clsNonParaOutput& writer) {
        groupsWriteTable(writer, {"Before", "After"}, {3, 2}, method);
    };
}

const std::vector<std::string> groupsFormatting = {
    "FormatTitle A5 False",
    "FormatTable A6:E7 False",
    "FormatTable A6:E10 False",
    "FormatTable A6:E13 True",
    "HorizontalAlignment B6:E6 CentreAcrossSelection",
    "FormatBody B8:E13 False",
    "NumberFormat D8:E13 \"0.0\"",
    "NumberFormat B13:E13 \"0\"",
};

Support::SheetText lines(const std::string& rankHeading) {
    return {"Descriptive Statistics",
            "|Value||" + rankHeading,
            "|Before|After|Before|After",
            "|1.5|7|1|5",
            "|2.5|2.5|2.5|2.5",
            "|4||4",
            "Median|2.5|4.75|2.5|3.75",
            "Sum|8|9.5|7.5|7.5",
            "N|3|2|3|2"};
}

// clang-format off
const SectionCase groupsCases[] = {
    {"UnequalGroups_KeepTheirSummariesInLine", groupsTable(tbvNPMannU), lines("Rank"), groupsFormatting, "A1:E14"},
    {"Friedman_RanksWithinBlocks", groupsTable(tbvNPFriedman), lines("Within Block Rank"), groupsFormatting, "A1:E14"},
    {"KruskalWallis_Ranks", groupsTable(tbvNPKWallis), lines("Rank"), groupsFormatting, "A1:E14"},
};
// clang-format on

class GroupDescriptives : public ::testing::TestWithParam<SectionCase> {};

TEST_P(GroupDescriptives, StandBesideTheirRanks) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, GroupDescriptives, ::testing::ValuesIn(groupsCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

TEST(GroupDescriptivesTable, ASecondOneStartsBelowTheCountsWithoutAGap) {
    ReportDesk desk;
    groupsTable(tbvNPMannU)(desk.writer);
    groupsTable(tbvNPMannU)(desk.writer);
    EXPECT_EQ(desk.cells("A9:A10"), (Support::SheetText{"N", "Descriptive Statistics"}));
    EXPECT_EQ(Support::plainAddress(desk.writer.GetResults()), "A1:E19");
}

TEST(GroupDescriptivesTable, RankCountsShowAsWholeNumbersUnderRanksWithOneDecimal) {
    ReportDesk desk;
    groupsTable(tbvNPMannU)(desk.writer);
    EXPECT_EQ(desk.record->calls.end()[-2], "NumberFormat D4:E9 \"0.0\"");
    EXPECT_EQ(desk.record->calls.end()[-1], "NumberFormat B9:E9 \"0\"");
}

TEST(GroupDescriptivesTable, OfTenThousandRowsTakesFewHostCalls) {
    ReportDesk desk;
    Long calls;
    desk.companions.application = Support::watchHost(desk.host, [&](const Support::HostCall&) { ++calls; });
    clsNonParaOutput writer(desk.companions);
    const Grid<double> data(10000, 2, 1.0);
    calls = 0;
    writer.OutputMWDescriptives({"a", "b"}, data, {1, 1}, {1, 1}, {10000, 10000}, data, {1, 1}, {1, 1},
                                {10000, 10000}, tbvNPMannU);
    EXPECT_LT(calls, Long(150));
}

TEST(GroupDescriptivesErrors, ACountAboveTheRowsOfDataIsAFaultAfterTheGroupsCells) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] {
                  groupsWriteTable(desk.writer, {"a", "b"}, {4, 2}, tbvNPMannU);
              }),
              Support::in("clsNonParaOutput.OutputMWDescriptives", 9));
    EXPECT_EQ(desk.cells("A3:E9"),
              (Support::SheetText{"|a|b|a|b", "|1.5||1", "|2.5||2.5", "|4||4", "Median", "Sum", "N"}));
}

TEST(GroupDescriptivesErrors, MoreLabelsThanColumnsOfDataIsAFault) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] {
                  groupsWriteTable(desk.writer, {"a", "b", "c"}, {3, 2, 1}, tbvNPMannU);
              }),
              Support::in("clsNonParaOutput.OutputMWDescriptives", 9));
}

TEST(GroupDescriptivesErrors, DataThatNoTestFilledIsAFault) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] {
                  desk.writer.OutputMWDescriptives({"a"}, {}, {}, {}, {}, {}, {}, {}, {}, tbvNPMannU);
              }),
              Support::in("clsNonParaOutput.OutputMWDescriptives", 9));
}

}  // namespace
}  // namespace TBVNonPara
