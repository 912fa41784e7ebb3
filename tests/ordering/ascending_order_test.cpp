#include "tbvnonpara/ordering/ascending_order.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>

#include "tbvnonpara/ordering/selection.hpp"
#include "tests/support/kinds_of_values.hpp"

namespace TBVNonPara {
namespace {

using Positions = std::vector<std::uint32_t>;
using Support::Kind;
using Support::Values;
using Support::valuesOf;

TEST(AscendingOrderOf, AHandfulOfValues) {
    const AscendingOrder order = ascendingOrder(Values{7, 3, -1, 3, 7, 7});
    EXPECT_EQ(order.positions, (Positions{2, 1, 3, 0, 4, 5}));
    EXPECT_EQ(order.ties, (std::vector<Tie>{{1, 2}, {3, 3}}));
}

TEST(AscendingOrderOf, ValuesThatAscendAlreadyIsTheirOwn) {
    const AscendingOrder order = ascendingOrder(Values{1, 2, 2, 9});
    EXPECT_EQ(order.positions, (Positions{0, 1, 2, 3}));
    EXPECT_EQ(order.ties, (std::vector<Tie>{{1, 2}}));
}

TEST(AscendingOrderOf, NothingIsEmpty) {
    EXPECT_EQ(ascendingOrder({}), AscendingOrder());
}

class AnyValues : public testing::TestWithParam<Kind> {};

constexpr std::size_t sizes[] = {1, 2, 3, 20, 63, 64, 65, 999, 1000, 5000, 20000, 30000};

TEST_P(AnyValues, StandInTheOrderOfAStableSort) {
    for (const std::size_t size : sizes) {
        const Values values = valuesOf(GetParam(), size);
        Positions expected(size);
        std::iota(expected.begin(), expected.end(), std::uint32_t(0));
        std::ranges::stable_sort(expected, {}, [&](std::uint32_t position) { return values[position]; });
        const AscendingOrder order = ascendingOrder(values);
        ASSERT_TRUE(order.positions == expected) << size << " values";
        ASSERT_TRUE(order.ties == tiesOf(values, expected)) << size << " values";
    }
}

bool same(double a, double b) {
    return a == b && std::signbit(a) == std::signbit(b);
}

TEST_P(AnyValues, AreSortedAsByAStableSort) {
    for (const std::size_t size : sizes) {
        Values values = valuesOf(GetParam(), size);
        Values expected = values;
        std::ranges::stable_sort(expected);
        sortAscending(values);
        ASSERT_TRUE(std::ranges::equal(values, expected, same)) << size << " values";
    }
}

TEST_P(AnyValues, AreFoundAtTheirPlacesWithoutASort) {
    for (const std::size_t size : sizes) {
        const Values values = valuesOf(GetParam(), size);
        Values sorted = values;
        std::ranges::stable_sort(sorted);
        for (const std::size_t place : {std::size_t(0), size / 3, size / 2, size - 1}) {
            const std::size_t next = std::min(place + 1, size - 1);
            ASSERT_PRED2(same, valuesAtPlaces(values, place, place)[0], sorted[place]) << size << " values";
            ASSERT_PRED2(same, valuesAtPlaces(values, place, next)[1], sorted[next]) << size << " values";
        }
    }
}

TEST(ValuesAtPlaces, AreFoundWhereASampleMisleads) {
    Values values(40000);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = i % 9 == 0 ? -static_cast<double>(i) : static_cast<double>(i);
    }
    Values sorted = values;
    std::ranges::sort(sorted);
    for (const std::size_t place : {0U, 1U, 4000U, 20000U, 39998U}) {
        EXPECT_EQ(valuesAtPlaces(values, place, place + 1), (std::array{sorted[place], sorted[place + 1]}));
    }
}

INSTANTIATE_TEST_SUITE_P(Of, AnyValues, testing::ValuesIn(Support::kindsOfValues),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace TBVNonPara
