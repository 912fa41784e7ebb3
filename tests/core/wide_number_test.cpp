#include "tbvnonpara/core/wide_number.hpp"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace TBVNonPara {
namespace {

/// A product in two halves and as the nearest double, by integers of any length.
struct ProductCase {
    std::string name;
    std::uint64_t a;
    std::uint64_t b;
    std::uint64_t high;
    std::uint64_t low;
    double nearest;

    friend std::ostream& operator<<(std::ostream& out, const ProductCase& one) { return out << one.name; }
};

// clang-format off
const ProductCase products[] = {
    {"Small",                   6,                      7,                      0,                      42,                     42},
    {"CrossesTheHalves",        0xFFFF'FFFF,            0x1'0000'0001,          0,                      0xFFFF'FFFF'FFFF'FFFF,  0x1p64},
    {"ExactlyTwoToThe64",       0x1'0000'0000,          0x1'0000'0000,          1,                      0,                      0x1p64},
    {"CubeOfTheLargestLong",    0x3FFF'FFFF'0000'0001,  0x7FFF'FFFF,            0x1FFF'FFFF,            0x4000'0001'7FFF'FFFF,  0x1.fffffff4p92},
    {"Largest",                 0xFFFF'FFFF'FFFF'FFFF,  0xFFFF'FFFF'FFFF'FFFF,  0xFFFF'FFFF'FFFF'FFFE,  1,                      0x1p128},
    {"HalfGoesDownToTheEven",   0x20'0000'0000'0001,    0x100'0000'0000,        0x2000'0000,            0x100'0000'0000,        0x1p93},
    {"HalfGoesUpToTheEven",     0x20'0000'0000'0003,    0x100'0000'0000,        0x2000'0000,            0x300'0000'0000,        0x1.0000000000002p93},
    {"MoreThanAHalfGoesUp",     0x8000'0000'0000'0401,  0x1000'0000'0000'0000,  0x800'0000'0000'0040,   0x1000'0000'0000'0000,  0x1.0000000000001p123},
};
// clang-format on

class WideNumbers : public testing::TestWithParam<ProductCase> {};

TEST_P(WideNumbers, MultiplyWithoutLosingABit) {
    EXPECT_EQ(WideNumber::product(GetParam().a, GetParam().b), WideNumber(GetParam().high, GetParam().low));
    EXPECT_EQ(WideNumber(GetParam().a) * GetParam().b, WideNumber(GetParam().high, GetParam().low));
}

TEST_P(WideNumbers, BecomeTheNearestDouble) {
    EXPECT_EQ(WideNumber(GetParam().high, GetParam().low).toDouble(), GetParam().nearest);
}

INSTANTIATE_TEST_SUITE_P(Core, WideNumbers, testing::ValuesIn(products),
                         [](const auto& tested) { return tested.param.name; });

TEST(WideNumberSums, CarryAndBorrowAcrossTheHalves) {
    const WideNumber largestLow(0, 0xFFFF'FFFF'FFFF'FFFF);
    EXPECT_EQ(largestLow + 1, WideNumber(1, 0));
    EXPECT_EQ(WideNumber(1, 0) - 1, largestLow);
    EXPECT_EQ(WideNumber(5, 1) - WideNumber(2, 2), WideNumber(2, 0xFFFF'FFFF'FFFF'FFFF));
    EXPECT_LT(largestLow, WideNumber(1, 0));
    EXPECT_EQ(WideNumber(1, 3) * 5, WideNumber(5, 15));
}

}  // namespace
}  // namespace TBVNonPara
