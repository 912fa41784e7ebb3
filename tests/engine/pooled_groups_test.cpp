#include "tbvnonpara/engine/pooled_groups.hpp"

#include <gtest/gtest.h>

#include "tests/support/engine_fixture.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara {
namespace {

using Support::blank;
using Support::Cells;
using Support::column;
using Support::columns;
using Support::numbers;
using Support::Rows;
using Support::rowsOf;
using Numbers = std::vector<double>;

struct Combined {
    std::string name;
    Cells first;
    Cells second;
    Numbers values;
    Numbers counts;
};

class CombinedSamples : public testing::TestWithParam<Combined> {};

TEST_P(CombinedSamples, StandBehindEachOther) {
    const auto& [name, first, second, values, counts] = GetParam();
    const PooledGroups pooled = combineSamples(column(first), column(second));
    EXPECT_EQ(numbers(pooled.values), values);
    EXPECT_EQ(numbers(pooled.counts), counts);
}

// clang-format off
const Combined combined[] = {
    {"InEntryOrder",                     {7, 3},        {5},           {7, 3, 5}, {2, 1}},
    {"ReadTextsThatAreNumbers",          {"7.5"},       {" 3 "},       {7.5, 3},  {1, 1}},
    {"BlanksAtTheEndAreNoObservations",  {7, blank},    {5, blank},    {7, 5},    {1, 1}},
    {"ABlankInsideShiftsTheReading",     {7, blank, 9}, {5},           {7, 0, 5}, {2, 1}},
    {"ABlankFirstCellIsReadAsZero",      {8},           {blank, 6, 7}, {8, 0, 6}, {1, 2}},
    {"ABlankSampleHasNoValues",          {blank},       {4},           {4},       {0, 1}},
    {"BothMayBeBlank",                   {blank},       {blank},       {},        {0, 0}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, CombinedSamples, testing::ValuesIn(combined),
                         [](const auto& test) { return test.param.name; });

TEST(CombineSamples, ReadsNoColumnButTheFirst) {
    EXPECT_EQ(numbers(combineSamples(columns({{1, 2}, {30, 40}}), column({5})).values), (Numbers{1, 2, 5}));
}

TEST(CombineSamples, RefusesACellThatIsNoNumber) {
    EXPECT_EQ(Support::raisedBy([] { (void)combineSamples(column({"a"}), column({1})); }).number, 13);
    const ValueGrid error{{CellError::NotAvailable}};
    EXPECT_EQ(Support::raisedBy([&] { (void)combineSamples(column({1}), error); }).number, 13);
}

TEST(CombineSamples, NeedNoColumnsWhereThereAreNoRows) {
    EXPECT_EQ(numbers(combineSamples(ValueGrid(0, 0), column({5})).counts), (Numbers{0, 1}));
}

TEST(CombineSamples, RefusesASampleThatIsNotThere) {
    EXPECT_EQ(Support::raisedBy([] { (void)combineSamples(ValueGrid(), column({1})); }).number, 9);
}

TEST(PoolGroups, SkipsBlanksWhereverTheyStand) {
    const PooledGroups pooled = poolGroups(columns({{1, blank, 3}, {blank, 5}, {}, {"7"}}));
    EXPECT_EQ(numbers(pooled.values), (Numbers{1, 3, 5, 7}));
    EXPECT_EQ(numbers(pooled.counts), (Numbers{2, 1, 0, 1}));
}

TEST(PoolGroups, RefusesACellThatIsNoNumber) {
    EXPECT_EQ(Support::raisedBy([] { (void)poolGroups(columns({{1, "a"}})); }).number, 13);
    EXPECT_EQ(Support::raisedBy([] { (void)poolGroups(ValueGrid()); }).number, 9);
}

TEST(SpreadOverGroups, FillsEachColumnFromTheTopAndLeavesTheRestZero) {
    EXPECT_EQ(rowsOf(spreadOverGroups({1, 2, 3, 4}, {1, 0, 3}, 3)), (Rows{{1, 0, 2}, {0, 0, 3}, {0, 0, 4}}));
}

}  // namespace
}  // namespace TBVNonPara
