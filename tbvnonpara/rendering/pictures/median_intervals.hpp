#pragma once

#include <optional>
#include <vector>

#include "tbvnonpara/details/details.hpp"

namespace TBVNonPara::rendering {

/// The intervals of medians that a picture can show, by the columns of the data; empty without details.
struct MedianIntervals {
    struct Interval {
        double low = 0;
        double high = 0;
    };
    double confidence = 0;
    std::vector<std::optional<Interval>> byColumn;

    /// Of a column counted from 0.
    [[nodiscard]] std::optional<Interval> of(std::size_t column) const {
        return column < byColumn.size() ? byColumn[column] : std::nullopt;
    }
};

/// Those of the groups of a test in full. `columns`: how many the test was given.
[[nodiscard]] MedianIntervals medianIntervals(const Details& details, std::size_t columns);

}  // namespace TBVNonPara::rendering
