#include "engine/ranking.hpp"

#include <gtest/gtest.h>

#include "tests/support/engine_fixture.hpp"

namespace TBVNonPara {
namespace {

using Support::numbers;
using Numbers = std::vector<double>;

struct Case {
    std::string name;
    Numbers values;
    Numbers ranks;
    double sumOfFirstTwo;
    double ties;
};

class Ranking : public testing::TestWithParam<Case> {};

TEST_P(Ranking, AveragesTheRanksOfEqualValues) {
    const Case& test = GetParam();
    const AscendingOrder order = ascendingOrder(test.values);
    EXPECT_EQ(numbers(ranksOf(order)), test.ranks);
    EXPECT_EQ(sumOfRanks(order, 2), test.sumOfFirstTwo);
    EXPECT_EQ(tieSum(order.ties), test.ties);
}

// clang-format off
const Case cases[] = {
    // name                       values               ranks                    first two  ties
    {"EntryOrderIsKept",          {30, 10, 20},        {3, 1, 2},               4,         0},
    {"APairSharesItsRank",        {7, 3, 3, 9},        {3, 1.5, 1.5, 4},        4.5,       6},
    {"AnOddTieTakesTheMiddle",    {5, 1, 5, 2, 5},     {4, 1, 4, 2, 4},         5,         24},
    {"EveryTieCounts",            {9, 9, 4, 9, 4},     {4, 4, 1.5, 4, 1.5},     8,         30},
    {"AllEqual",                  {6, 6, 6, 6},        {2.5, 2.5, 2.5, 2.5},    5,         60},
    {"MinusZeroIsZero",           {1, -0.0, 0.0, -1},  {4, 2.5, 2.5, 1},        6.5,       6},
    {"OneValue",                  {8},                 {1},                     1,         0},
    {"NoValue",                   {},                  {},                      0,         0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, Ranking, testing::ValuesIn(cases),
                         [](const auto& test) { return test.param.name; });

TEST(TieSumOfTies, IsFormedInDoubles) {
    EXPECT_EQ(tieSum(std::vector<Tie>{{0, 100000}}), 999999999900000) << "a whole number would overflow";
}

}  // namespace
}  // namespace TBVNonPara
