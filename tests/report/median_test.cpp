#include "tests/report/section_case.hpp"

namespace TBVNonPara {
namespace {

const ValueGrid medianCounts = {
    {Empty(), "a", "b", "c"},
    {"> Grand Median", 3.0, 0.0, 2.0},
    {"<= Grand Median", 1.0, 0.0, 4.0},
};

std::function<void(clsNonParaOutput&)> countsTable(const Labels& names) {
    return [names](clsNonParaOutput& writer) { writer.OutputMedianCounts(names, medianCounts); };
}

// clang-format off
const SectionCase countCases[] = {
    {"AGroupWithoutObservations_ShowsTwoZeros", countsTable({"Low", "None", "High"}),
     {"Counts", "|Low|None|High", "> Grand Median|3|0|2", "<= Grand Median|1|0|4"},
     {"FormatTitle A5 False", "FormatTable A7:A8 False", "FormatTable B6:D6 False", "FormatBody B7:D8 False",
      "NumberFormat B7:D8 \"0\""},
     "A1:D9"},
    {"OneName_WritesOneColumn", countsTable({"Low"}),
     {"Counts", "|Low", "> Grand Median|3", "<= Grand Median|1"},
     {"FormatTitle A5 False", "FormatTable A7:A8 False", "FormatTable B6 False", "FormatBody B7:B8 False",
      "NumberFormat B7:B8 \"0\""},
     "A1:B9"},
};
// clang-format on

class MedianCounts : public ::testing::TestWithParam<SectionCase> {};

TEST_P(MedianCounts, StandUnderTheGroupsNames) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, MedianCounts, ::testing::ValuesIn(countCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

using Probability = std::optional<double>;

std::function<void(clsNonParaOutput&)> contingencyTable(Probability yatesP, Probability cochranP,
                                                        Probability likelihoodYatesP) {
    return [=](clsNonParaOutput& writer) {
        writer.OutputContingency(4.5, 0.1, 2, 4.25, 0.2, 3.5, yatesP, 3.25, cochranP, 3.75, likelihoodYatesP);
    };
}

std::vector<std::string> contingencyFormatting(const std::string& last) {
    return {"FormatTitle A5 False", "FormatTable A6:D6 False", "FormatTable A7:A" + last + " False",
            "FormatBody B7:D" + last + " False", "NumberFormat C7:C" + last + " \"0\""};
}

// clang-format off
const SectionCase contingencyCases[] = {
    {"NoCorrections", contingencyTable({}, {}, {}),
     {"Test Results", "Statistic|Value|DF|P", "Chi-Square|4.5|2|0.1", "Log-Likelihood|4.25|2|0.2"},
     contingencyFormatting("8"), "A1:D9"},
    {"YatesOnly", contingencyTable(0.3, {}, {}),
     {"Test Results", "Statistic|Value|DF|P", "Chi-Square|4.5|2|0.1", "Yates Correction|3.5|2|0.3",
      "Log-Likelihood|4.25|2|0.2"},
     contingencyFormatting("9"), "A1:D10"},
    {"YatesAndCochran", contingencyTable(0.3, 0.4, {}),
     {"Test Results", "Statistic|Value|DF|P", "Chi-Square|4.5|2|0.1", "Yates Correction|3.5|2|0.3",
      "Cochran Correction|3.25|2|0.4", "Log-Likelihood|4.25|2|0.2"},
     contingencyFormatting("10"), "A1:D11"},
    {"CochranIsNeverWrittenWithoutYates", contingencyTable({}, 0.4, {}),
     {"Test Results", "Statistic|Value|DF|P", "Chi-Square|4.5|2|0.1", "Log-Likelihood|4.25|2|0.2"},
     contingencyFormatting("8"), "A1:D9"},
    {"YatesCanAppearTwice_AllRowsShareOneDF", contingencyTable(0.3, 0.4, 0.5),
     {"Test Results", "Statistic|Value|DF|P", "Chi-Square|4.5|2|0.1", "Yates Correction|3.5|2|0.3",
      "Cochran Correction|3.25|2|0.4", "Log-Likelihood|4.25|2|0.2", "Yates Correction|3.75|2|0.5"},
     contingencyFormatting("11"), "A1:D12"},
};
// clang-format on

class ContingencySection : public ::testing::TestWithParam<SectionCase> {};

TEST_P(ContingencySection, WritesTheRowsWhoseProbabilityIsPresent) {
    expectSection(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Report, ContingencySection, ::testing::ValuesIn(contingencyCases),
                         caseName<::testing::TestParamInfo<SectionCase>>);

TEST(MedianSectionErrors, CarryTheSectionsNames) {
    ReportDesk desk;
    EXPECT_EQ(Support::raisedBy([&] {
                  desk.writer.OutputMedianCounts({"a", "b", "c", "d"}, medianCounts);
              }),
              Support::in("clsNonParaOutput.OutputMedianCounts", 9));
    EXPECT_EQ(Support::raisedBy([&] { desk.writer.OutputMedianCounts({}, medianCounts); }),
              Support::in("clsNonParaOutput.OutputMedianCounts", 9));
}

}  // namespace
}  // namespace TBVNonPara
