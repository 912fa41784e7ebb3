#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <random>

#include "tbvnonpara/ordering/ascending_order.hpp"

namespace TBVNonPara {
namespace {

struct Shape {
    const char* name;
    std::function<double(std::mt19937_64&, std::size_t)> value;
    friend void PrintTo(const Shape& shape, std::ostream* out) { *out << shape.name; }
};

class OrderOnThreads : public testing::TestWithParam<Shape> {};

TEST_P(OrderOnThreads, IsThatOfOneThread) {
    std::mt19937_64 random(5);
    std::vector<double> values(430'000);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = GetParam().value(random, i);
    }
    const AscendingOrder expected = ascendingOrder(values);
    for (const std::size_t threads : {std::size_t(2), std::size_t(3), std::size_t(5)}) {
        EXPECT_TRUE(ascendingOrder(values, threads) == expected) << threads;
    }
}

double normal(std::mt19937_64& random) {
    return std::normal_distribution<double>()(random);
}

const Shape shapes[] = {
    {"Normal", [](auto& random, std::size_t) { return normal(random); }},
    {"NormalWithSixDecimals",
     [](auto& random, std::size_t) { return std::round(normal(random) * 1e6) / 1e6; }},
    {"NormalWithTwoDecimals",
     [](auto& random, std::size_t) { return std::round(normal(random) * 100) / 100; }},
    {"FewValues", [](auto& random, std::size_t) { return static_cast<double>(random() % 7); }},
    {"MostAlike", [](auto& random, std::size_t) { return random() % 1000 == 0 ? normal(random) : 1.0; }},
    {"HugeAndTiny",
     [](auto& random, std::size_t) {
         return std::ldexp(normal(random), static_cast<int>(random() % 2000) - 1000);
     }},
    {"ZerosOfBothSigns",
     [](auto& random, std::size_t) {
         return random() % 3 == 0 ? normal(random) : random() % 2 == 0 ? 0.0 : -0.0;
     }},
    {"Ascending", [](auto&, std::size_t i) { return static_cast<double>(i); }},
    {"Descending", [](auto&, std::size_t i) { return -static_cast<double>(i) * 0.1; }},
    {"NeighboursInTheLastBit",
     [](auto& random, std::size_t) { return 1 + static_cast<double>(random() % 900'000) * 0x1p-52; }},
};
INSTANTIATE_TEST_SUITE_P(Shapes, OrderOnThreads, testing::ValuesIn(shapes),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace TBVNonPara
