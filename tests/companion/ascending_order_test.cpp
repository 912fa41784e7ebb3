#include "companion/ascending_order.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <random>

#include "companion/array_utility.hpp"
#include "companion/selection.hpp"

namespace TBVNonPara {
namespace {

using Values = std::vector<double>;
using Positions = std::vector<std::uint32_t>;
using Random = std::mt19937_64;

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

/// Values of one kind that a key of limited width could get wrong.
struct Kind {
    std::string name;
    std::function<double(Random&)> value;
};

double normal(Random& random, double mean, double deviation) {
    return std::normal_distribution(mean, deviation)(random);
}

// clang-format off
const Kind kinds[] = {
    {"Positive",             [](Random& r) { return normal(r, 50, 10); }},
    {"OfBothSigns",          [](Random& r) { return normal(r, 0, 1); }},
    {"OfAllMagnitudes",      [](Random& r) { return std::ldexp(normal(r, 0, 1), static_cast<int>(r() % 2000) - 1000); }},
    {"Codes",                [](Random& r) { return static_cast<double>(r() % 7); }},
    {"Decimals",             [](Random& r) { return (static_cast<double>(r() % 2001) - 1000) / 10; }},
    {"LastPlaces",           [](Random& r) { return 1 + static_cast<double>(r() % 50) * 0x1p-52; }},
    {"CrowdedBesideOutlier", [](Random& r) { return r() % 1000 == 0 ? 1e300 : 1 + static_cast<double>(r() % 5000) * 0x1p-52; }},
    {"ZerosOfBothSigns",     [](Random& r) { return r() % 3 == 0 ? -0.0 : r() % 2 == 0 ? 0.0 : normal(r, 0, 1); }},
    {"Subnormal",            [](Random& r) { return (static_cast<double>(r() % 200) - 100) * 5e-324; }},
    {"Infinite",             [](Random& r) { return r() % 5 == 0 ? std::numeric_limits<double>::infinity() * (r() % 2 == 0 ? 1 : -1) : normal(r, 0, 1); }},
    {"AllEqual",             [](Random&) { return 4.25; }},
};
// clang-format on

class AnyValues : public testing::TestWithParam<Kind> {};

Values valuesOf(const Kind& kind, std::size_t size) {
    Random random(20260101);
    Values values(size);
    std::ranges::generate(values, [&] { return kind.value(random); });
    return values;
}

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

TEST_P(AnyValues, StandInTheSameOrderForAUtilityThatOnlySortsRows) {
    const ObjectRef<ArrayUtility> utility = createArrayUtility();
    const Values values = valuesOf(GetParam(), 5000);
    EXPECT_TRUE(utility->ArrayUtility::OrderOf(values) == utility->OrderOf(values));
}

INSTANTIATE_TEST_SUITE_P(Of, AnyValues, testing::ValuesIn(kinds),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace TBVNonPara
