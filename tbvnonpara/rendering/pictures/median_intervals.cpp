#include "tbvnonpara/rendering/pictures/median_intervals.hpp"

namespace TBVNonPara::rendering {

namespace {

/// Groups without values have no place among those of the result.
template <typename Group>
std::size_t columnOf(const Group& group, std::size_t place) {
    if constexpr (requires { group.original; }) {
        return group.original;
    } else {
        return place;
    }
}

}  // namespace

MedianIntervals medianIntervals(const Details& details, std::size_t columns) {
    MedianIntervals intervals{details.choices.confidence, {}};
    intervals.byColumn.resize(columns);
    const auto take = [&](const auto& test) {
        if constexpr (requires { test.groups; }) {
            for (std::size_t g = 0; g < test.groups.size(); ++g) {
                const statistics::OrderedEstimate& median = test.groups[g].median;
                const std::size_t column = columnOf(test.groups[g], g);
                if (median.low && median.high && column < columns) {
                    intervals.byColumn[column] = {*median.low, *median.high};
                }
            }
        }
    };
    std::visit(take, details.result);
    return intervals;
}

}  // namespace TBVNonPara::rendering
