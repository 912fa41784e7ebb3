#include "tests/report/section_case.hpp"

namespace TBVNonPara {
namespace {

const Labels mannWhitneyNames = {"Before", "After"};
const Array<Long> DF = {3, 4};

std::function<void(clsNonParaOutput&)> mannWhitneyTestTable(const Labels& labels, TBVNPTails tails) {
    return [labels, tails](clsNonParaOutput& writer) { writer.OutputMWTest(labels, 9.5, DF, 0.125, tails); };
}

const std::vector<std::string> mannWhitneyFormatting = {
    "FormatTitle A5 False",
    "FormatTable A6:D6 False",
    "FormatBody A7:D7 False",
    "NumberFormat B7:C7 \"0\"",
};

// clang-format off
const SectionCase mannWhitneyCases[] = {
    {"TwoTailed_DoesNotReadTheNames", mannWhitneyTestTable({}, tbvNPTwoTailed),
     {"2-tailed Test", "U|DF 1|DF 2|P", "9.5|3|4|0.125"}, mannWhitneyFormatting, "A1:D8"},
    {"TailsOutsideTheList_IsTwoTailed", mannWhitneyTestTable({}, TBVNPTails(9)),
     {"2-tailed Test", "U|DF 1|DF 2|P", "9.5|3|4|0.125"}, mannWhitneyFormatting, "A1:D8"},
};
// clang-format on

class MannWhitneySection : public ::testing::TestWithParam<SectionCase> {};

TEST_P(MannWhitneySection, WritesItsRowsAndLeavesTheCursorBelow) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, MannWhitneySection, ::testing::ValuesIn(mannWhitneyCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

TEST(MannWhitneySectionErrors, AOneTailedStatementNeedsBothNames) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] { desk.writer.OutputMWTest({"Before"}, 1, DF, 1, tbvNPVar1GTVar2); }),
              Support::in("clsNonParaOutput.OutputMWTest", 9));
}

TEST(MannWhitneySectionErrors, CellsWrittenBeforeAFaultStay) {
    ReportDesk desk;
    EXPECT_EQ(
        Support::raisedBy([&] { desk.writer.OutputMWTest(mannWhitneyNames, 1, {3}, 1, tbvNPTwoTailed); }),
        Support::in("clsNonParaOutput.OutputMWTest", 9));
    EXPECT_EQ(desk.cells("A1:D5"), (Support::SheetText{"2-tailed Test", "U|DF 1|DF 2|P", "1|3"}));
}

}  // namespace
}  // namespace TBVNonPara
