#include "tbvnonpara/engine/group_summary.hpp"

#include <gtest/gtest.h>

#include "tests/support/engine_fixture.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara {
namespace {

using Counts = std::optional<Array<Long>>;
using Numbers = std::vector<double>;
using Support::numbers;

struct SummaryCase {
    std::string name;
    Grid<double> data;
    Grid<double> ranks;
    Counts counts;
    Numbers mediansRaw, sumsRaw, nsRaw;
    Numbers mediansRank, sumsRank, nsRank;
};

class GroupSummaryTest : public testing::TestWithParam<SummaryCase> {};

TEST_P(GroupSummaryTest, GivesMedianSumAndCountOfEachColumn) {
    const SummaryCase& test = GetParam();
    const GroupSummaries all = summariseGroups(test.data, test.ranks, *createArrayUtility(), test.counts);
    EXPECT_EQ(numbers(all.raw.medians), test.mediansRaw);
    EXPECT_EQ(numbers(all.raw.sums), test.sumsRaw);
    EXPECT_EQ(numbers(all.raw.ns), test.nsRaw);
    EXPECT_EQ(numbers(all.rank.medians), test.mediansRank);
    EXPECT_EQ(numbers(all.rank.sums), test.sumsRank);
    EXPECT_EQ(numbers(all.rank.ns), test.nsRank);
}

const Grid<double> data{{9, 40}, {7, 10}, {8, 30}};
const Grid<double> ownRanks{{3, 6}, {1, 4}, {2, 5}};
const Grid<double> threeGroups{{3, 6, 1}, {1, 4, 0}, {2, 0, 0}};

// clang-format off
const SummaryCase summaryCases[] = {
    // name                              data                                 ranks        counts                   raw: medians, sums, ns          rank: medians, sums, ns
    {"WithoutCountsAllRows",             data,                                ownRanks,    std::nullopt,            {8, 30}, {24, 80}, {3, 3},      {2, 5}, {6, 15}, {3, 3}},
    {"OneCountAColumnHoldsForBoth",      data,                                ownRanks,    Array<Long>{3, 2},       {8, 35}, {24, 70}, {3, 2},      {2, 5.5}, {6, 11}, {3, 2}},
    {"MoreCountsAreDataThenRanks",       data,                                threeGroups, Array<Long>{3, 3, 3, 2, 1}, {8, 30}, {24, 80}, {3, 3},   {2, 5, 1}, {6, 10, 1}, {3, 2, 1}},
    {"ACountOfNoneIsZeros",              data,                                ownRanks,    Array<Long>{0, 3},       {0, 30}, {0, 80}, {0, 3},       {0, 5}, {0, 15}, {0, 3}},
    {"ACountOfOne",                      data,                                ownRanks,    Array<Long>{1, 1},       {9, 40}, {9, 40}, {1, 1},       {3, 6}, {3, 6}, {1, 1}},
    {"UnfilledCellsSortFirst",           {{5, 2}, {0, 1}},                    {{3, 2}, {0, 1}}, Array<Long>{1, 2},  {5, 1.5}, {5, 3}, {1, 2},       {3, 1.5}, {3, 3}, {1, 2}},
    {"ButNotBelowNegativeValues",        {{-5, 2}, {0, 1}},                   {{3, 2}, {0, 1}}, Array<Long>{1, 2},  {0, 1.5}, {0, 3}, {1, 2},       {3, 1.5}, {3, 3}, {1, 2}},
    {"FourValuesHaveTheMeanOfTwo",       {{4}, {1}, {3}, {10}},               {{3}, {1}, {2}, {4}}, std::nullopt,   {3.5}, {18}, {4},               {2.5}, {10}, {4}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, GroupSummaryTest, testing::ValuesIn(summaryCases),
                         [](const auto& test) { return test.param.name; });

TEST(SummariseGroups, RaisesWhatItsSubscriptsAndSumsRaise) {
    const auto numberOf = [](const Grid<double>& values, const Counts& counts) {
        return Support::raisedBy(
                   [&] { (void)summariseGroups(values, values, *createArrayUtility(), counts); })
            .number;
    };
    EXPECT_EQ(numberOf(data, Array<Long>{4, 3}), 9) << "more values than rows";
    EXPECT_EQ(numberOf(data, Array<Long>{3}), 9) << "a column without a count";
    EXPECT_EQ(numberOf(Grid<double>(), std::nullopt), 9) << "no data";
    EXPECT_EQ(numberOf({{1e308}, {1e308}}, std::nullopt), 6) << "a sum out of range";
}

/// An array utility that counts the cells it was given to sort.
class CountingUtility : public ArrayUtility {
 public:
    void SortRows(Grid<double>& table, Long reserved, Long column) const override {
        cells += table.rows() * table.columns();
        m_Own->SortRows(table, reserved, column);
    }
    [[nodiscard]] ValueGrid MakeTwoDimensional(const Array<CellValue>& array) const override {
        return m_Own->MakeTwoDimensional(array);
    }
    [[nodiscard]] ValueGrid JoinColumns(const ValueGrid& left, const ValueGrid& right) const override {
        return m_Own->JoinColumns(left, right);
    }

    mutable Long cells;

 private:
    ObjectRef<ArrayUtility> m_Own = createArrayUtility();
};

TEST(SummariseGroups, OfManyColumnsSortsEachAlone) {
    constexpr Long columns = 5000;
    Grid<double> wide(3, columns);
    for (Long c = 1; c <= columns; ++c) {
        wide(1, c) = toDouble(c) + 2;
        wide(2, c) = toDouble(c);
        wide(3, c) = toDouble(c) + 4;
    }
    const CountingUtility utility;
    const GroupSummaries all = summariseGroups(wide, wide, utility);
    for (Long c = 1; c <= columns; ++c) {
        ASSERT_EQ(all.raw.medians(c), toDouble(c) + 2);
        ASSERT_EQ(all.rank.sums(c), 3 * toDouble(c) + 6);
    }
    EXPECT_LE(utility.cells, 2 * 3 * columns) << "no cell is sorted along with another column";
}

TEST(SummariseLists, TakesEachListAsItIs) {
    const Array<double> lists[] = {{4, 1, 3}, Array<double>(0), {-1, -4}};
    const GroupSummary summary = summariseLists(lists, *createArrayUtility());
    EXPECT_EQ(numbers(summary.medians), (Numbers{3, 0, -2.5}));
    EXPECT_EQ(numbers(summary.sums), (Numbers{8, 0, -5}));
    EXPECT_EQ(numbers(summary.ns), (Numbers{3, 0, 2}));
}

TEST(SummariseColumns, TakesAllRowsOfEachColumn) {
    const GroupSummary summary = summariseColumns(data, *createArrayUtility());
    EXPECT_EQ(numbers(summary.medians), (Numbers{8, 30}));
    EXPECT_EQ(numbers(summary.sums), (Numbers{24, 80}));
    EXPECT_EQ(numbers(summary.ns), (Numbers{3, 3}));
}

}  // namespace
}  // namespace TBVNonPara
