#include "adapters/calc/figure_cells.hpp"

#include <gtest/gtest.h>

namespace TBVNonPara::calc {

namespace {

using Rows = std::vector<std::vector<CellValue>>;

ValueGrid reportOf(const Rows& rows) {
    ValueGrid cells(Long(rows.size()), Long(5));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            cells(Long(row + 1), Long(column + 1)) = rows[row][column];
        }
    }
    return cells;
}

/// "row,column heading=figure" of each, joined by semicolons.
std::string found(const Rows& rows, TBVNPMethod method, TBVNPTails tails = tbvNPTwoTailed) {
    std::string text;
    for (const FigureCell& cell : figureCells(reportOf(rows), method, tails)) {
        text += (text.empty() ? "" : "; ") + std::to_string(cell.row.value()) + ',' +
                std::to_string(cell.column.value()) + ' ' + cell.heading + '=' + cell.figure;
    }
    return text;
}

const Rows mannWhitneyReport = {{"Title"}, {"U", "DF 1", "DF 2", "P"}, {9.0, 3.0, 3.0, 0.1}};

TEST(FigureCells, UIsThatOfTheAlternative) {
    EXPECT_EQ(found(mannWhitneyReport, tbvNPMannU), "3,1 U=u; 3,2 DF 1=df.1; 3,3 DF 2=df.2; 3,4 P=");
    EXPECT_EQ(found(mannWhitneyReport, tbvNPMannU, tbvNPVar1GTVar2).substr(0, 19), "3,1 U=statistic.u.1");
    EXPECT_EQ(found(mannWhitneyReport, tbvNPMannU, tbvNPVar1LTVar2).substr(0, 19), "3,1 U=statistic.u.2");
}

TEST(FigureCells, TOfOneTailIsTheSumOfTheRanksThatSpeakAgainstIt) {
    const Rows report = {{"T", "N", "P"}, {3.0, 6.0, 0.1}};
    EXPECT_EQ(found(report, tbvNPWilcoxon), "2,1 T=t; 2,2 N=n; 2,3 P=");
    EXPECT_EQ(found(report, tbvNPWilcoxon, tbvNPVar1GTVar2), "2,1 T=negative.sum; 2,2 N=n; 2,3 P=");
    EXPECT_EQ(found({{"Z", "N", "P"}, {3.0, 60.0, 0.1}}, tbvNPWilcoxon, tbvNPVar1LTVar2),
              "2,1 Z=z; 2,2 N=n; 2,3 P=");
}

TEST(FigureCells, StandInTheLastSectionWhateverTheLabelsAbove) {
    const Rows report = {{"rs", "DF", "P"}, {"x"}, {}, {"rs", "DF", "P"}, {0.5, 9.0, 0.1}};
    EXPECT_EQ(found(report, tbvNPSpearman), "5,1 rs=rs; 5,2 DF=df.1; 5,3 P=");
}

TEST(FigureCells, EachStatisticOfATableHasItsOwn) {
    EXPECT_EQ(found({{"Statistic", "Value", "DF 1", "DF 2", "P"},
                     {"Chi-Square", 7.0, 2.0, "-", 0.03},
                     {"F", 5.0, 2.0, 9.0, 0.03},
                     {}},
                    tbvNPFriedman),
              "2,2 Chi-Square Value=chiSquare; 2,3 Chi-Square DF 1=df.1; 2,5 Chi-Square P=; 3,2 F Value=f; "
              "3,3 F DF 1=fDf.1; 3,4 F DF 2=fDf.2; 3,5 F P=fP");
    EXPECT_EQ(
        found({{"Statistic", "Value", "DF", "P"},
               {"Yates Correction", 7.0, 1.0, 0.03},
               {"Log-Likelihood", 7.0, 1.0, 0.03}},
              tbvNPMedian),
        "2,2 Yates Correction Value=yates; 2,3 Yates Correction DF=df.1; 2,4 Yates Correction P=yatesP; "
        "3,2 Log-Likelihood Value=logLikelihood; 3,3 Log-Likelihood DF=df.1; 3,4 Log-Likelihood "
        "P=logLikelihoodP");
}

TEST(FigureCells, CountsOfSignsAndRunsAreAmongThem) {
    EXPECT_EQ(found({{"1 > 2", "1 = 2", "1 < 2"}, {4.0, 1.0, 1.0}, {}, {"2-tailed Test"}, {"P = ", 0.4}},
                    tbvNPSign),
              "2,1 1 > 2=positive; 2,2 1 = 2=neither; 2,3 1 < 2=negative; 5,2 P=");
    EXPECT_EQ(found({{"Observed", 3.0}, {"Expected", 4.0}, {}, {"Z adjusted", "P"}, {0.1, 0.9}}, tbvNPWWRuns),
              "1,2 Observed=runs; 2,2 Expected=expected; 5,1 Z adjusted=z; 5,2 P=");
}

TEST(FigureCells, AnotherReportHasNone) {
    EXPECT_EQ(found(mannWhitneyReport, tbvNPKWallis), "");
}

}  // namespace

}  // namespace TBVNonPara::calc
