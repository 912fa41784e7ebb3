#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "tbvnonpara/statistics/options.hpp"

namespace TBVNonPara::statistics {

/// The values of one sample that count, and how many were left out.
struct Sample {
    std::vector<double> values;
    std::size_t missing = 0;
};

/// Throws std::invalid_argument where a value is infinite, or not a number and not to be left out; the text
/// names the sample and the position, counted from 1. `name` is what the text calls the sample.
[[nodiscard]] Sample sampleOf(std::span<const double> values, std::string_view name, const Options& options);

/// The same for pairs: one is left out where either value is missing. Throws where the lengths differ, too.
struct Pairs {
    std::vector<double> first;
    std::vector<double> second;
    std::size_t missing = 0;
};
[[nodiscard]] Pairs pairsOf(std::span<const double> first, std::span<const double> second,
                            const Options& options);

}  // namespace TBVNonPara::statistics
