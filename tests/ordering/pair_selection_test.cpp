#include "tbvnonpara/ordering/pair_selection.hpp"

#include <algorithm>
#include <gtest/gtest.h>
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

// 150 x 120 differences are more than are looked at one by one.
TEST(DifferenceAtPlace, IsThatOfAllDifferencesInOrder) {
    for (const int largest : {1, 3, 40, 1000000}) {
        const std::vector<double> first = ascendingDraws(150, largest, 1);
        const std::vector<double> second = ascendingDraws(120, largest, 2);
        const std::vector<double> all = allDifferences(first, second);
        for (std::size_t place = 0; place < all.size(); place += 997) {
            EXPECT_EQ(differenceAtPlace(first, second, place), all[place]) << largest << ' ' << place;
        }
        EXPECT_EQ(differenceAtPlace(first, second, all.size() - 1), all.back()) << largest;
    }
}

TEST(DifferenceAtPlace, KnowsSamplesOfOne) {
    EXPECT_EQ(differenceAtPlace(std::vector<double>{3}, std::vector<double>{1}, 0), 2);
    EXPECT_EQ(differenceAtPlace(std::vector<double>{3}, std::vector<double>{1, 2, 5}, 0), -2);
    EXPECT_EQ(differenceAtPlace(std::vector<double>{1, 2, 5}, std::vector<double>{3}, 2), 2);
}

TEST(WalshAverageAtPlace, IsThatOfAllAveragesInOrder) {
    for (const int largest : {1, 3, 40, 1000000}) {
        const std::vector<double> values = ascendingDraws(160, largest, 3);
        const std::vector<double> all = allWalshAverages(values);
        for (std::size_t place = 0; place < all.size(); place += 701) {
            EXPECT_EQ(walshAverageAtPlace(values, place), all[place]) << largest << ' ' << place;
        }
        EXPECT_EQ(walshAverageAtPlace(values, all.size() - 1), all.back()) << largest;
    }
}

TEST(WalshAverageAtPlace, DoesNotOverflow) {
    EXPECT_EQ(walshAverageAtPlace(std::vector<double>{1.5e308, 1.7e308}, 1), 1.6e308);
}

}  // namespace
}  // namespace TBVNonPara
