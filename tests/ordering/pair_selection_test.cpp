#include "tbvnonpara/ordering/pair_selection.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

namespace TBVNonPara {
namespace {

std::vector<double> ascendingDraws(std::size_t n, int largest, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<double> values(n);
    for (double& value : values) {
        value = static_cast<double>(random() % static_cast<unsigned>(largest)) / 8;
    }
    std::ranges::sort(values);
    return values;
}

std::vector<double> allDifferences(const std::vector<double>& first, const std::vector<double>& second) {
    std::vector<double> all;
    for (const double a : first) {
        for (const double b : second) {
            all.push_back(a - b);
        }
    }
    std::ranges::sort(all);
    return all;
}

std::vector<double> allWalshAverages(const std::vector<double>& values) {
    std::vector<double> all;
    for (std::size_t i = 0; i < values.size(); ++i) {
        for (std::size_t j = i; j < values.size(); ++j) {
            all.push_back(std::midpoint(values[i], values[j]));
        }
    }
    std::ranges::sort(all);
    return all;
}

std::vector<std::uint64_t> everyPlace(std::size_t count, std::size_t step) {
    std::vector<std::uint64_t> places = {count - 1};
    for (std::size_t place = 0; place < count; place += step) {
        places.push_back(place);
    }
    return places;
}

std::vector<double> valuesAt(const std::vector<double>& all, const std::vector<std::uint64_t>& places) {
    std::vector<double> values;
    for (const std::uint64_t place : places) {
        values.push_back(all[static_cast<std::size_t>(place)]);
    }
    return values;
}

using Places = std::vector<std::uint64_t>;

// 150 x 120 differences are more than are looked at one by one.
TEST(DifferencesAtPlaces, AreThoseOfAllDifferencesInOrder) {
    for (const int largest : {1, 3, 40, 1000000}) {
        const std::vector<double> first = ascendingDraws(150, largest, 1);
        const std::vector<double> second = ascendingDraws(120, largest, 2);
        const std::vector<double> all = allDifferences(first, second);
        const Places places = everyPlace(all.size(), 997);
        EXPECT_EQ(differencesAtPlaces(first, second, places), valuesAt(all, places)) << largest;
        for (const std::uint64_t place : places) {
            EXPECT_EQ(differencesAtPlaces(first, second, Places{place}), valuesAt(all, {place})) << largest;
        }
    }
}

// Neither the quantiles of every 32nd value nor an even spread lead to them.
TEST(DifferencesAtPlaces, AreFoundWhateverTheSpread) {
    std::vector<double> first = {-1.7e308, -1e308};
    std::vector<double> second = {-1.5e308};
    for (int i = 0; i < 400; ++i) {
        first.push_back(i % 32 == 16 ? 1e-300 * i : std::ldexp(1.0, i * 2 - 400));
        second.push_back(i % 2 == 0 ? 1 + std::ldexp(i, -52) : std::ldexp(-1.0, i - 700));
    }
    second.push_back(1.6e308);
    std::ranges::sort(first);
    std::ranges::sort(second);
    const std::vector<double> all = allDifferences(first, second);
    ASSERT_EQ(all.front(), -std::numeric_limits<double>::infinity());
    const Places places = everyPlace(all.size(), 1499);
    EXPECT_EQ(differencesAtPlaces(first, second, places), valuesAt(all, places));
    EXPECT_EQ(differencesAtPlaces(first, second, Places{0, 1, 2}), valuesAt(all, {0, 1, 2}));
}

TEST(DifferencesAtPlaces, KnowSamplesOfOne) {
    const auto at = [](std::vector<double> first, std::vector<double> second, std::uint64_t place) {
        return differencesAtPlaces(first, second, Places{place}).front();
    };
    EXPECT_EQ(at({3}, {1}, 0), 2);
    EXPECT_EQ(at({3}, {1, 2, 5}, 0), -2);
    EXPECT_EQ(at({1, 2, 5}, {3}, 2), 2);
}

// 1 to 100,000 less 1 to 100,000: the differences up to -d are 1 + 2 + ... + (100,000 - d).
TEST(DifferencesAtPlaces, OfTwoHundredThousandValuesAreCounted) {
    std::vector<double> values(100000);
    std::iota(values.begin(), values.end(), 1.0);
    const std::uint64_t all = 10'000'000'000;
    const std::uint64_t upTo = std::uint64_t(99'000) * 99'001 / 2;
    EXPECT_EQ(differencesAtPlaces(values, values, Places{0, upTo - 1, upTo, all / 2, all - 1}),
              (std::vector<double>{-99999, -1000, -999, 0, 99999}));
}

TEST(WalshAveragesAtPlaces, AreThoseOfAllAveragesInOrder) {
    for (const int largest : {1, 3, 40, 1000000}) {
        const std::vector<double> values = ascendingDraws(160, largest, 3);
        const std::vector<double> all = allWalshAverages(values);
        const Places places = everyPlace(all.size(), 701);
        EXPECT_EQ(walshAveragesAtPlaces(values, places), valuesAt(all, places)) << largest;
    }
}

TEST(WalshAveragesAtPlaces, DoNotOverflow) {
    EXPECT_EQ(walshAveragesAtPlaces(std::vector<double>{1.5e308, 1.7e308}, Places{1}),
              std::vector<double>{1.6e308});
}

}  // namespace
}  // namespace TBVNonPara
