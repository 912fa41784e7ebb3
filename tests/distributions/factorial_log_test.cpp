#include "tbvnonpara/distributions/factorial_log.hpp"

#include <cmath>
#include <gtest/gtest.h>

#include "tests/support/reference_rows.hpp"

namespace TBVNonPara {
namespace {

using Support::referenceRows;

TEST(FactorialLog, IsZeroBelowOneAndTheLogarithmOfTheFactorial) {
    EXPECT_EQ(toDouble(FactorialLog(0)), 0);
    EXPECT_EQ(toDouble(FactorialLog(-3)), 0);
    EXPECT_EQ(toDouble(FactorialLog(1)), 0);
    EXPECT_EQ(toDouble(FactorialLog(5)), std::log(120.0));
}

TEST(FactorialLog, HasFifteenDecimalsAndALogarithmTwenty) {
    for (const auto& row : referenceRows("logarithms.csv")) {
        const Long n = std::stoi(row.at(0));
        const DoubleDouble ofNumber(std::stod(row.at(1)), std::stod(row.at(2)));
        const DoubleDouble ofFactorial(std::stod(row.at(3)), std::stod(row.at(4)));
        EXPECT_NEAR(toDouble(logarithm(n) - ofNumber), 0, 1e-21) << row.at(0);
        EXPECT_NEAR(toDouble(FactorialLog(n) - ofFactorial), 0, 1e-15) << row.at(0);
    }
}

}  // namespace
}  // namespace TBVNonPara
