#include "tbvnonpara/engine/paired_differences.hpp"

#include <gtest/gtest.h>

#include "tests/support/engine_fixture.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara {
namespace {

using Support::blank;
using Support::Cells;
using Support::column;

struct Paired {
    std::string name;
    Cells first;
    Cells second;
    std::vector<double> differences;
};

class PairedSamples : public testing::TestWithParam<Paired> {};

TEST_P(PairedSamples, GiveDifferences) {
    const auto& [name, first, second, differences] = GetParam();
    EXPECT_EQ(Support::numbers(pairedDifferences(column(first), column(second))), differences);
}

// clang-format off
const Paired paired[] = {
    {"FirstLessSecond",                       {5, 4, 2},     {3, 4, 6},     {2, 0, -4}},
    {"TheNoiseOfADifferenceIsTakenOut",       {5.1},         {5.0},         {0.1}},
    {"AndOfANegativeOne",                     {5.0},         {5.1},         {-0.1}},
    {"SevenDigitsOfADifferenceStay",          {0.123456789}, {0},           {0.1234568}},
    {"ADifferenceOfNoiseAloneStays",          {0.3},         {0.1 + 0.2},   {-5.551115e-17}},
    {"RowsWithABlankAreSkipped",              {1, blank, 9}, {3, 4, blank}, {-2}},
    {"MoreRowsOfTheSecondAreNotRead",         {4},           {1, 2, 3},     {3}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, PairedSamples, testing::ValuesIn(paired),
                         [](const auto& test) { return test.param.name; });

TEST(PairedDifferences, RaiseWhatTheirCellsRaise) {
    const auto numberOf = [](const Cells& first, const Cells& second) {
        return Support::raisedBy([&] { (void)pairedDifferences(column(first), column(second)); }).number;
    };
    EXPECT_EQ(numberOf({"a"}, {1}), 13);
    EXPECT_EQ(numberOf({1, 2}, {1}), 9) << "the second variable is shorter";
    EXPECT_EQ(numberOf({1e39}, {0}), 6) << "beyond single precision";
    EXPECT_EQ(numberOf({1e308}, {-1e308}), 6) << "beyond double precision";
}

}  // namespace
}  // namespace TBVNonPara
