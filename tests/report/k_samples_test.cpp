#include "tests/report/section_case.hpp"

namespace TBVNonPara {
namespace {

void kSamplesWriteTable(clsNonParaOutput& writer) {
    writer.OutputKWallis(7.5, {3}, 0.0625, 2.75, {3, 16}, 0.09375);
}

const std::vector<std::string> kSamplesFormatting = {
    "FormatTitle A5 False",   "FormatTable A6:E6 False",  "FormatTable A7:A8 True",
    "FormatBody B7:E8 False", "NumberFormat C7:D8 \"0\"",
};

// clang-format off
const SectionCase kSamplesCases[] = {
    {"TheChiSquareRowHasADashForItsSecondDF", kSamplesWriteTable,
     {"Test Results", "Statistic|Value|DF 1|DF 2|P", "Chi-Square|7.5|3|-|0.0625", "F|2.75|3|16|0.09375"},
     kSamplesFormatting, "A1:E9"},
};
// clang-format on

class KSamplesSection : public ::testing::TestWithParam<SectionCase> {};

TEST_P(KSamplesSection, WritesBothStatistics) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, KSamplesSection, ::testing::ValuesIn(kSamplesCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

TEST(KSamplesSectionWidth, NeverDecreases) {
    ReportDesk desk;
    desk.writer.OutputMedianCounts(Labels(7), ValueGrid(3, 8));
    kSamplesWriteTable(desk.writer);
    EXPECT_EQ(Support::plainAddress(desk.writer.GetResults()), "A1:H9");
}

TEST(KSamplesSectionErrors, KeepTheRowsWrittenBefore) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] { desk.writer.OutputKWallis(7.5, {3}, 0.5, 2.75, {3}, 0.25); }),
              Support::in("clsNonParaOutput.OutputKWallis", 9));
    EXPECT_EQ(desk.cells("A1:E4"), (Support::SheetText{"Test Results", "Statistic|Value|DF 1|DF 2|P",
                                                       "Chi-Square|7.5|3|-|0.5", "F|2.75|3"}));
}

}  // namespace
}  // namespace TBVNonPara
