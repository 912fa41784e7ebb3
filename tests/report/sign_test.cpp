#include "tests/report/section_case.hpp"

namespace TBVNonPara {
namespace {

std::function<void(clsNonParaOutput&)> signTable(const std::string& first, const std::string& second,
                                                 TBVNPTails tails) {
    return [=](clsNonParaOutput& writer) {
        Labels labels = {first, second};
        writer.OutputSignTest(labels, {5, 2, 3}, 0.7265625, tails);
    };
}

Support::SheetText signTable(const std::string& title) {
    return {"Counts", "1 > 2|1 = 2|1 < 2", "5|2|3", "", title, "P = |0.7265625"};
}

const std::vector<std::string> signFormatting = {
    "FormatTitle A5 False",     "FormatTable A6:C6 False",          "FormatBody A7:C7 False",
    "NumberFormat A7:C7 \"0\"", "HorizontalAlignment A7:C7 Centre", "FormatTitle A9 False",
    "FormatBody A10:B10 True",
};

// clang-format off
const SectionCase signCases[] = {
    {"EmptyLabels_AreVar1AndVar2",     signTable("", "", tbvNPVar1GTVar2),
     signTable("1-tailed Test (Var 1 > Var 2)"), signFormatting, "A1:C11"},
    {"FirstSmaller_NamesTheVariables", signTable("Old", "New", tbvNPVar1LTVar2),
     signTable("1-tailed Test (Old < New)"), signFormatting, "A1:C11"},
    {"OneEmptyLabel_IsReplacedAlone",  signTable("Old", "", tbvNPVar1LTVar2),
     signTable("1-tailed Test (Old < Var 2)"), signFormatting, "A1:C11"},
    {"TwoTailed_WhateverTheLabels",    signTable("Old", "New", tbvNPTwoTailed),
     signTable("2-tailed Test"), signFormatting, "A1:C11"},
};
// clang-format on

class SignSection : public ::testing::TestWithParam<SectionCase> {};

TEST_P(SignSection, EndsSixRowsBelowItsStart) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, SignSection, ::testing::ValuesIn(signCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

TEST(SignSectionQuirks, EmptyLabelsAreReplacedInTheCallersArray) {
    ReportDesk desk;
    Labels labels(2);
    desk.writer.OutputSignTest(labels, {1, 1, 1}, 1, tbvNPTwoTailed);
    EXPECT_EQ(labels, (Labels{"Var 1", "Var 2"}));
}

TEST(SignSectionQuirks, TheWidthIsSetToThreeAlsoAfterAWiderSection) {
    ReportDesk desk;
    desk.writer.OutputMWTest({}, 1, {1, 1}, 1, tbvNPTwoTailed);
    Labels labels(2);
    desk.writer.OutputSignTest(labels, {1, 1, 1}, 1, tbvNPTwoTailed);
    EXPECT_EQ(Support::plainAddress(desk.writer.GetResults()), "A1:C10");
}

TEST(SignSectionErrors, KeepWhatWasWritten) {
    ReportDesk desk;
    Labels labels(2);
    EXPECT_EQ(Support::raisedBy([&] {
                  desk.writer.OutputSignTest(labels, {4, 1}, 1, tbvNPTwoTailed);
              }),
              Support::in("clsNonParaOutput.OutputSignTest", 9));
    EXPECT_EQ(desk.cells("A1:C5"), (Support::SheetText{"Counts", "1 > 2|1 = 2|1 < 2", "4|1"}));
    Labels one = {"Old"};
    EXPECT_EQ(Support::raisedBy([&] {
                  desk.writer.OutputSignTest(one, {4, 1, 2}, 1, tbvNPTwoTailed);
              }),
              Support::in("clsNonParaOutput.OutputSignTest", 9));
}

}  // namespace
}  // namespace TBVNonPara
