#include "tbvnonpara/ordering/ranking.hpp"

#include <gtest/gtest.h>

#include "tests/support/raised.hpp"

namespace TBVNonPara {
namespace {

using Numbers = std::vector<double>;

Numbers numbers(const TieCounts& tieCounts) {
    Numbers counts;
    for (const Long count : tieCounts.elements()) {
        counts.push_back(toDouble(count));
    }
    return counts;
}

struct Ranked {
    std::string name;
    Numbers values;
    bool excludeZeros;
    Numbers ranks;
    Numbers ties;
};

class RankingOf : public testing::TestWithParam<Ranked> {};

TEST_P(RankingOf, StayInTheirPlaces) {
    const auto& [name, values, excludeZeros, expected, ties] = GetParam();
    Numbers ranks(values.size());
    EXPECT_EQ(numbers(excludeZeros ? rankWithoutZeros(values, ascendingOrder(values), ranks)
                                   : rankValues(ascendingOrder(values), ranks)),
              ties);
    EXPECT_EQ(ranks, expected);
}

// clang-format off
const Ranked ranked[] = {
    {"EntryOrderIsKept",                {30, 10, 20},      false, {3, 1, 2},                   {0}},
    {"APairSharesItsRank",              {7, 3, 3, 9},      false, {3, 1.5, 1.5, 4},            {2}},
    {"AnOddTieTakesTheMiddleRank",      {5, 1, 5, 2, 5},   false, {4, 1, 4, 2, 4},             {3}},
    {"WithoutATieTheListIsOneZero",     {2, 1},            false, {2, 1},                      {0}},
    {"TiesAreListedInOrderOfValue",     {9, 9, 4, 9, 4},   false, {4, 4, 1.5, 4, 1.5},         {2, 3}},
    {"AllEqual",                        {6, 6, 6, 6},      false, {2.5, 2.5, 2.5, 2.5},        {4}},
    {"MinusZeroIsZero",                 {1, -0.0, 0, -1},  false, {4, 2.5, 2.5, 1},            {2}},
    {"ZerosAreLeftOut",                 {0, 2, 0, 5, 2},   true,  {0, 1.5, 0, 3, 1.5},         {2}},
    {"ZerosAreRankedWhenNotLeftOut",    {0, 2, 0, 5, 2},   false, {1.5, 3.5, 1.5, 5, 3.5},     {2, 2}},
    {"OneZeroIsLeftOut",                {3, 0, 1},         true,  {2, 0, 1},                   {0}},
    {"NothingButZeros",                 {0, 0, 0},         true,  {0, 0, 0},                   {0}},
    {"NoZerosToLeaveOut",               {4, 4},            true,  {1.5, 1.5},                  {2}},
    {"BelowZeroNothingIsLeftOut",       {0, -4, -4, 0, 1}, true,  {0, 1.5, 1.5, 0, 3},         {2}},
    {"ValuesAreComparedExactly",        {0.1 + 0.2, 0.3},  false, {2, 1},                      {0}},
    {"OneValue",                        {8},               false, {1},                         {0}},
    {"NothingToRank",                   {},                false, {},                          {0}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Values, RankingOf, testing::ValuesIn(ranked),
                         [](const auto& test) { return test.param.name; });

TEST(RankedValues, AreVisitedInAscendingOrder) {
    const RankedValues values = rankValues(ascendingOrder(Numbers{7, 3, 9, 3}));
    std::vector<std::pair<Index, double>> visited;
    values.visit([&](Index position, double rank) { visited.emplace_back(position, rank); });
    EXPECT_EQ(visited, (std::vector<std::pair<Index, double>>{{1, 1.5}, {3, 1.5}, {0, 3}, {2, 4}}));
    EXPECT_EQ(numbers(values.tieCounts), Numbers{2});
}

TEST(SumRanksByGroup, TakesValuesWhoseRanksWereNotWritten) {
    const int groups[] = {1, 2, 2, 3};
    const auto groupOf = [&](Index i) { return groups[i - 1]; };
    const RankSums sums = sumRanksByGroup(rankValues(ascendingOrder(Numbers{7, 3, 9, 3})), groupOf);
    EXPECT_EQ(sums.first, 3);
    EXPECT_EQ(sums.firstCount, Long(1));
    EXPECT_EQ(sums.second, 5.5);
    EXPECT_EQ(sums.secondCount, Long(2));
}

TEST(SumRanksByGroup, SkipsGroupsBeyondTheSecond) {
    const int groups[] = {1, 2, 3, 2, 1, 2};
    const auto groupOf = [&](Index i) { return groups[i - 1]; };
    const RankSums sums = sumRanksByGroup(Numbers{1, 2.5, 2.5, 4, 5, 6}, groupOf);
    EXPECT_EQ(sums.first, 6);
    EXPECT_EQ(sums.firstCount, Long(2));
    EXPECT_EQ(sums.second, 12.5);
    EXPECT_EQ(sums.secondCount, Long(3));
}

TEST(RankSums, RaiseOverflowWhenACountLeaves32Bits) {
    RankSums sums{0, 0, 2147483647, 2147483647};
    EXPECT_EQ(Support::raisedBy([&] { sums.add(1, 1); }).number, 6);
    EXPECT_EQ(Support::raisedBy([&] { sums.add(2, 1); }).number, 6);
}

TEST(TieSum, IsFormedInDoubles) {
    EXPECT_EQ(tieSum({0}), 0);
    EXPECT_EQ(tieSum({2, 3}), 30);
    EXPECT_EQ(tieSum({100000}), 999999999900000) << "a whole number would overflow";
}

}  // namespace
}  // namespace TBVNonPara
