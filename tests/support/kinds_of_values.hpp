#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace TBVNonPara::Support {

using Values = std::vector<double>;
using Random = std::mt19937_64;

/// Values of one kind that a key of limited width could get wrong.
struct Kind {
    std::string name;
    std::function<double(Random&)> value;
};

inline double normal(Random& random, double mean, double deviation) {
    return std::normal_distribution(mean, deviation)(random);
}

// clang-format off
inline const Kind kindsOfValues[] = {
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

inline Values valuesOf(const Kind& kind, std::size_t size) {
    Random random(20260101);
    Values values(size);
    std::ranges::generate(values, [&] { return kind.value(random); });
    return values;
}

}  // namespace TBVNonPara::Support
