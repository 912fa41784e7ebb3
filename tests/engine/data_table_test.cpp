#include "engine/data_table.hpp"

#include <gmock/gmock.h>

#include "tests/support/engine_fixture.hpp"

namespace TBVNonPara {
namespace {

using Support::numbers;
using Support::Rows;
using Support::rowsOf;

const ObjectRef<ArrayUtility> utility = createArrayUtility();

struct Ranked {
    std::string name;
    std::vector<double> values;
    bool excludeZeros;
    std::vector<double> sorted;
    std::vector<double> ranks;
    std::vector<double> ties;
};

class RankedValues : public testing::TestWithParam<Ranked> {};

DataTable tableOf(const std::vector<double>& values) {
    DataTable table(Long(values.size()), 4);
    for (Long i = 1; i <= table.rows(); ++i) {
        table(i, Value) = values[static_cast<std::size_t>(toIndex(i) - 1)];
        table(i, Sequence) = toDouble(i);
    }
    return table;
}

std::vector<double> columnOf(const DataTable& table, DataColumn of) {
    const auto cells = table.column(of);
    return {cells.begin(), cells.end()};
}

TEST_P(RankedValues, AreSortedAndRanked) {
    const auto& [name, values, excludeZeros, sorted, ranks, ties] = GetParam();
    DataTable table = tableOf(values);
    EXPECT_EQ(numbers(RankValues(table, *utility, excludeZeros)), ties);
    EXPECT_EQ(columnOf(table, Value), sorted);
    EXPECT_EQ(columnOf(table, Rank), ranks);
}

// clang-format off
const Ranked ranked[] = {
    {"APairSharesItsRank",              {7, 3, 3, 9},     false, {3, 3, 7, 9},     {1.5, 1.5, 3, 4},           {2}},
    {"AnOddTieTakesTheMiddleRank",      {1, 2, 5, 5, 5},  false, {1, 2, 5, 5, 5},  {1, 2, 4, 4, 4},            {3}},
    {"WithoutATieTheListIsOneZero",     {2, 1},           false, {1, 2},           {1, 2},                     {0}},
    {"TiesAreListedInOrderOfValue",     {9, 9, 4, 9, 4},  false, {4, 4, 9, 9, 9},  {1.5, 1.5, 4, 4, 4},        {2, 3}},
    {"AllEqual",                        {6, 6, 6, 6},     false, {6, 6, 6, 6},     {2.5, 2.5, 2.5, 2.5},       {4}},
    {"ZerosAreLeftOut",                 {0, 2, 0, 5, 2},  true,  {0, 0, 2, 2, 5},  {0, 0, 1.5, 1.5, 3},        {2}},
    {"ZerosAreRankedWhenNotLeftOut",    {0, 2, 0, 5, 2},  false, {0, 0, 2, 2, 5},  {1.5, 1.5, 3.5, 3.5, 5},    {2, 2}},
    {"OneZeroIsLeftOut",                {3, 0, 1},        true,  {0, 1, 3},        {0, 1, 2},                  {0}},
    {"NothingButZeros",                 {0, 0, 0},        true,  {0, 0, 0},        {0, 0, 0},                  {0}},
    {"NoZerosToLeaveOut",               {4, 4},           true,  {4, 4},           {1.5, 1.5},                 {2}},
    {"ValuesAreComparedExactly",        {0.1 + 0.2, 0.3}, false, {0.3, 0.1 + 0.2}, {1, 2},                     {0}},
    {"NothingToRank",                   {},               false, {},               {},                         {0}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, RankedValues, testing::ValuesIn(ranked),
                         [](const auto& test) { return test.param.name; });

TEST(RankValues, MovesGroupAndSequenceWithTheValue) {
    DataTable table{{7, 1, 0, 1}, {3, 2, 0, 2}, {3, 1, 0, 3}};
    RankValues(table, *utility, false);
    EXPECT_EQ(rowsOf(table), (Rows{{3, 2, 1.5, 2}, {3, 1, 1.5, 3}, {7, 1, 3, 1}}));
}

}  // namespace
}  // namespace TBVNonPara
