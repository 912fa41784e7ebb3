#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "tbvnonpara/distributions/long_count.hpp"

namespace TBVNonPara {

/// The chances of the sum of two whole numbers that do not depend on one another, each counted from 0.
[[nodiscard]] inline std::vector<double> folded(std::span<const double> first,
                                                std::span<const double> second) {
    std::vector<double> sum(first.size() + second.size() - 1);
    LongCount count(static_cast<double>(first.size()) * static_cast<double>(second.size()));
    for (std::size_t i = 0; i < first.size(); ++i) {
        for (std::size_t j = 0; j < second.size(); ++j) {
            sum[i + j] += first[i] * second[j];
        }
        count.add(static_cast<double>(second.size()));
    }
    return sum;
}

}  // namespace TBVNonPara
