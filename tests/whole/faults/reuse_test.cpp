#include <gtest/gtest.h>

#include "tests/whole/faults/analysis.hpp"

namespace TBVNonPara::Faults {

namespace {

using Pair = std::tuple<Analysis, Analysis>;

class Reuse : public testing::TestWithParam<Pair> {};

TEST_P(Reuse, TheSecondReportIsThatOfAFreshObject) {
    const auto& [first, second] = GetParam();
    for (const bool descriptives : {false, true}) {
        const Desk desk([](const Support::HostCall&) {});
        clsNonPara request(desk.companions());
        putSettings(request, first, !descriptives);
        request.Results();
        desk.application().GetRange(outputBlock)->Clear();
        putSettings(request, second, descriptives);
        request.Results();
        EXPECT_EQ(desk.cells(outputBlock), freshReport(second, descriptives));
    }
}

INSTANTIATE_TEST_SUITE_P(AllPairs, Reuse,
                         testing::Combine(testing::ValuesIn(analyses), testing::ValuesIn(analyses)),
                         [](const auto& test) {
                             return std::get<0>(test.param).name + "_Then_" + std::get<1>(test.param).name;
                         });

/// 51 pairs, one more than the exact distribution is used for.
ValueGrid manyPairs() {
    ValueGrid pairs(51, 2);
    for (Long i = 1; i <= 51; ++i) {
        pairs(i, 1) = toDouble(i);
        pairs(i, 2) = toDouble(i) + (i.value() % 3 == 0 ? -0.5 : 1.0) * toDouble(i);
    }
    return pairs;
}

/// UseApprox stays True once it is set, and the report then reads the fields of the approximation.
TEST(ReuseQuirks, AnExactWilcoxonAfterAnApproximateOneIsReportedAsAsymptotic) {
    const Desk desk([](const Support::HostCall&) {});
    desk.application().addSheet("Many", manyPairs());
    clsNonPara request(desk.companions());
    request.LetMethod(tbvNPWilcoxon);
    request.LetYRange("Many!A1:A51");
    request.LetXRange("Many!B1:B51");
    request.LetOutputRange("Report!B1");
    request.Results();
    const ValueGrid approximate = desk.cells("Report!B13:D13");
    EXPECT_EQ(toText(desk.cells("Report!B11")(1, 1)), "2-tailed Asymptopic Test");

    request.LetYRange("Many!A1:A6");
    request.LetXRange("Many!B1:B6");
    request.Results(true);
    const ValueGrid exact = desk.cells("Report!B13:D13");
    EXPECT_EQ(toText(desk.cells("Report!B11")(1, 1)), "2-tailed Asymptopic Test");
    EXPECT_EQ(exact(1, 1), approximate(1, 1));
    EXPECT_EQ(exact(1, 2), CellValue(6.0));
    EXPECT_EQ(exact(1, 3), approximate(1, 3));
    EXPECT_TRUE(request.engine().GetUseApprox());
}

/// Every other test leaves the mark alone too.
TEST(ReuseQuirks, TheMarkOfAnApproximationOutlivesAnotherTest) {
    const Desk desk([](const Support::HostCall&) {});
    desk.application().addSheet("Many", manyPairs());
    clsNonPara request(desk.companions());
    request.LetMethod(tbvNPWilcoxon);
    request.LetYRange("Many!A1:A51");
    request.LetXRange("Many!B1:B51");
    request.LetOutputRange("Report!B1");
    request.Results();
    request.LetMethod(tbvNPMannU);
    request.Results(true);
    EXPECT_TRUE(request.engine().GetUseApprox());
}

/// Fields that a test does not fill keep what an earlier run left.
TEST(ReuseQuirks, ResultsThatATestDoesNotFillAreThoseOfTheTestBefore) {
    const Desk desk([](const Support::HostCall&) {});
    clsNonPara request(desk.companions());
    putSettings(request, analyses[tbvNPKWallis], true);
    request.Results();
    const double F = request.engine().GetAlternateStat();
    putSettings(request, analyses[tbvNPMannU], false);
    request.Results(true);
    EXPECT_GT(F, 0);
    EXPECT_EQ(request.engine().GetAlternateStat(), F);
    EXPECT_EQ(request.engine().GetData().columns(), 3);
}

}  // namespace

}  // namespace TBVNonPara::Faults
