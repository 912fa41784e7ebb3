#include "tests/report/section_case.hpp"

namespace TBVNonPara {
namespace {

const Labels spearmanNames = {"Height", "Weight"};

std::function<void(clsNonParaOutput&)> spearmanTestTable(TBVNPTails tails, TBVNPMethod method,
                                                         const std::string& methodWord) {
    return [=](clsNonParaOutput& writer) {
        writer.OutputTest(spearmanNames, 0.75, {8}, 0.03125, tails, method, methodWord);
    };
}

const std::vector<std::string> spearmanFormatting = {"FormatTitle A5 False", "FormatTable A6:C6 False",
                                                     "FormatBody A7:C7 False", "NumberFormat B7 \"0\""};

// clang-format off
const SectionCase spearmanCases[] = {
    {"Wilcoxon_TwoTailed_HasTheMethodWord", spearmanTestTable(tbvNPTwoTailed, tbvNPWilcoxon, "Exact"),
     {"2-tailed Exact Test", "T|N|P", "0.75|8|0.03125"}, spearmanFormatting, "A1:C8"},
    {"Wilcoxon_FirstGreater", spearmanTestTable(tbvNPVar1GTVar2, tbvNPWilcoxon, "Exact"),
     {"1-tailed Exact Test (Height > Weight)", "T|N|P", "0.75|8|0.03125"}, spearmanFormatting, "A1:C8"},
    {"Wilcoxon_FirstSmaller_WithoutAWord_KeepsBothBlanks", spearmanTestTable(tbvNPVar1LTVar2, tbvNPWilcoxon, ""),
     {"1-tailed  Test (Height < Weight)", "T|N|P", "0.75|8|0.03125"}, spearmanFormatting, "A1:C8"},
    {"AnyOtherMethod_TwoTailed_HasNoHeadings", spearmanTestTable(tbvNPTwoTailed, tbvNPMannU, "Exact"),
     {"2-tailed Test", "", "0.75|8|0.03125"}, spearmanFormatting, "A1:C8"},
    {"AnyOtherMethod_FirstGreater", spearmanTestTable(tbvNPVar1GTVar2, tbvNPSign, "Exact"),
     {"1-tailed Test (Height > Weight)", "", "0.75|8|0.03125"}, spearmanFormatting, "A1:C8"},
    {"AnyOtherMethod_FirstSmaller", spearmanTestTable(tbvNPVar1LTVar2, TBVNPMethod(-1), "Exact"),
     {"1-tailed Test (Height < Weight)", "", "0.75|8|0.03125"}, spearmanFormatting, "A1:C8"},
};
// clang-format on

class CorrelationSection : public ::testing::TestWithParam<SectionCase> {};

TEST_P(CorrelationSection, WritesItsRowsAndLeavesTheCursorBelow) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, CorrelationSection, ::testing::ValuesIn(spearmanCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

TEST(CorrelationSectionErrors, DFWithoutElementsIsAFaultAfterTheStatistic) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] {
                  desk.writer.OutputTest(spearmanNames, 0.75, Array<Long>(0), 1, tbvNPTwoTailed,
                                         tbvNPSpearman, "");
              }),
              Support::in("clsNonParaOutput.OutputTest", 9));
    EXPECT_EQ(desk.cells("A1:C4"), (Support::SheetText{"2-tailed Test", "rs|DF|P", "0.75"}));
}

}  // namespace
}  // namespace TBVNonPara
