#include "tests/report/section_case.hpp"

namespace TBVNonPara {
namespace {

std::function<void(clsNonParaOutput&)> runsTable(const Array<CellValue>& categories,
                                                 const Array<Long>& counts, TBVNPTails tails) {
    return [=](clsNonParaOutput& writer) {
        writer.OutputWWRuns({"Coin"}, categories, counts, 6, 5.5, 0.25, 0.75, tails);
    };
}

// clang-format off
const SectionCase runsCases[] = {
    {"TwoCategories_EnteringAtRow4_LeavesRow17", runsTable({"A", "B"}, {5, 4}, tbvNPTwoTailed),
     {"Counts", "Group|Count", "A|5", "B|4", "", "Runs", "Observed|6", "Expected|5.5", "", "",
      "2-tailed Test", "Z adjusted|P", "0.25|0.75"},
     {"FormatTitle A4 False", "FormatTable A5:B5 False", "FormatBody A6:B7 True", "NumberFormat B6:B7 \"0\"",
      "FormatTitle A9 False", "FormatBody A10:B11 True", "NumberFormat B10 \"0\"",
      "FormatTitle A14 False", "FormatTable A15:B15 False", "FormatBody A16:B16 True"},
     "A1:D17", 4},
    {"ThreeCategories_ShiftTheLaterBlocksDown", runsTable({"A", 2.0, "C"}, {5, 4, 1}, tbvNPVar1GTVar2),
     {"Counts", "Group|Count", "A|5", "2|4", "C|1", "", "Runs", "Observed|6", "Expected|5.5", "", "",
      "Fewer Runs than Expected", "Z|P", "0.25|0.75"},
     {"FormatTitle A4 False", "FormatTable A5:B5 False", "FormatBody A6:B8 True", "NumberFormat B6:B8 \"0\"",
      "FormatTitle A10 False", "FormatBody A11:B12 True", "NumberFormat B11 \"0\"",
      "FormatTitle A15 False", "FormatTable A16:B16 False", "FormatBody A17:B17 True"},
     "A1:D18", 4},
    {"MoreRuns_IsTheOtherOneTailedStatement", runsTable({1.0}, {5}, tbvNPVar1LTVar2),
     {"Counts", "Group|Count", "1|5", "", "Runs", "Observed|6", "Expected|5.5", "", "",
      "More Runs than Expected", "Z|P", "0.25|0.75"},
     {"FormatTitle A4 False", "FormatTable A5:B5 False", "FormatBody A6:B6 True", "NumberFormat B6 \"0\"",
      "FormatTitle A8 False", "FormatBody A9:B10 True", "NumberFormat B9 \"0\"",
      "FormatTitle A13 False", "FormatTable A14:B14 False", "FormatBody A15:B15 True"},
     "A1:D16", 4},
    {"TailsOutsideTheList_StatesTwoTailsOverAPlainZ", runsTable({Empty()}, {5}, TBVNPTails(3)),
     {"Counts", "Group|Count", "|5", "", "Runs", "Observed|6", "Expected|5.5", "", "",
      "2-tailed Test", "Z|P", "0.25|0.75"},
     {"FormatTitle A4 False", "FormatTable A5:B5 False", "FormatBody A6:B6 True", "NumberFormat B6 \"0\"",
      "FormatTitle A8 False", "FormatBody A9:B10 True", "NumberFormat B9 \"0\"",
      "FormatTitle A13 False", "FormatTable A14:B14 False", "FormatBody A15:B15 True"},
     "A1:D16", 4},
};
// clang-format on

class RunsSection : public ::testing::TestWithParam<SectionCase> {};

TEST_P(RunsSection, WritesItsThreeBlocks) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, RunsSection, ::testing::ValuesIn(runsCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

TEST(RunsSectionQuirks, ReportsItsErrorsUnderTheTwoSampleSectionsName) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] {
                  desk.writer.OutputWWRuns({}, {"A", "B"}, {5}, 1, 1, 1, 1, tbvNPTwoTailed);
              }),
              Support::in("clsNonParaOutput.OutputMWTest", 9));
    EXPECT_EQ(desk.cells("A1:D9"), (Support::SheetText{"Counts", "Group|Count", "A|5", "B"}));
}

TEST(RunsSectionLimits, CategoriesWithoutAnArrayAreAFault) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] { desk.writer.OutputWWRuns({}, {}, {}, 1, 1, 1, 1, tbvNPTwoTailed); }),
              Support::in("clsNonParaOutput.OutputMWTest", 9));
}

TEST(RunsSectionLimits, AHundredThousandCategoriesTakeAsManyCallsAsTwo) {
    ReportDesk desk;
    Long calls;
    desk.companions.application = Support::watchHost(desk.host, [&](const Support::HostCall&) { ++calls; });
    clsNonParaOutput writer(desk.companions);
    Array<CellValue> categories(100000);
    for (Long i = 1; i <= categories.size(); ++i) {
        categories(i) = toDouble(i);
    }
    calls = 0;
    writer.OutputWWRuns({}, categories, Array<Long>(100000, 1), 1, 1, 1, 1, tbvNPTwoTailed);
    EXPECT_LT(calls, Long(120));
    EXPECT_EQ(desk.cells("A100001:B100003"), (Support::SheetText{"99999|1", "100000|1"}));
}

}  // namespace
}  // namespace TBVNonPara
