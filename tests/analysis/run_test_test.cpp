#include "tbvnonpara/analysis/run_test.hpp"

#include <gtest/gtest.h>

#include "tbvnonpara/files/csv/file.hpp"
#include "tests/analysis/data_sheet.hpp"

namespace TBVNonPara::analysis {

namespace {

const std::string samples = "a,b\n1.1,4\n2.7,5.3\n3,9.1\n8,\n";

TEST(RunningATest, PutsTheReportOnASheetOfItsOwn) {
    const FinishedTest test = finished(samples, choicesFor("mann-whitney"));
    EXPECT_EQ(test.address(), "Results!$A$1:$D$9");
    EXPECT_EQ(toText(test.sheet().value(1, 1)), "Mann-Whitney Test Results for:");
    EXPECT_EQ(toText(test.sheet().value(6, 1)), "U");
}

TEST(RunningATest, TakesAFreeNameWhenTheDataSheetIsCalledResults) {
    const ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    workbook::openCsvText(*application, "Results", samples);
    const Choices choices = choicesFor("mann-whitney");
    const FinishedTest test = runTest(application, choices, chooseRanges(*application, choices));
    EXPECT_EQ(test.address(), "'Results (2)'!$A$1:$D$9");
    EXPECT_EQ(toText(test.sheet().value(2, 1)), "Set 1 Range = Results!$A$1:$A$5");
}

}  // namespace

}  // namespace TBVNonPara::analysis
