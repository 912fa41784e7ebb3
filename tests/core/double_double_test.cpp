#include "tbvnonpara/core/double_double.hpp"

#include <gtest/gtest.h>

namespace TBVNonPara {
namespace {

TEST(DoubleDouble, KeepsWhatCancellationLeaves) {
    const DoubleDouble large = DoubleDouble(1e16) + DoubleDouble(1) + DoubleDouble(1e-14);
    EXPECT_EQ(toDouble(large - DoubleDouble(1e16)), 1 + 1e-14);
    EXPECT_EQ(toDouble(DoubleDouble(1) / 3 * 3 - DoubleDouble(1)), 0);
    EXPECT_EQ(toDouble(DoubleDouble(1) / 3 - DoubleDouble(1.0 / 3)), 1.0 / 3 * 0x1p-54);
}

TEST(DoubleDouble, KeepsProductsOfTwoDoublesWhole) {
    // (1 + 2^-40)^2 = 1 + 2^-39 + 2^-80
    const DoubleDouble square = exactProduct(1 + 0x1p-40, 1 + 0x1p-40);
    EXPECT_EQ(square.high, 1 + 0x1p-39);
    EXPECT_EQ(square.low, 0x1p-80);
}

TEST(DoubleDouble, MultipliesAndDividesPairs) {
    const DoubleDouble third = DoubleDouble(1) / 3;
    const DoubleDouble seventh = DoubleDouble(1) / 7;
    EXPECT_NEAR(toDouble(third * seventh - DoubleDouble(1) / 21), 0, 0x1p-108);
    EXPECT_NEAR(toDouble(third / seventh - DoubleDouble(7) / 3), 0, 0x1p-102);
    EXPECT_EQ(toDouble(third / third - 1), 0);
}

}  // namespace
}  // namespace TBVNonPara
