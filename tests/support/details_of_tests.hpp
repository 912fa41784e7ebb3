#pragma once

#include <algorithm>
#include <optional>
#include <span>
#include <vector>

#include "tbvnonpara/details/details.hpp"

namespace TBVNonPara {

inline const OfferedTest* offered(TBVNPMethod method) {
    return &*std::ranges::find(offeredTests(), method, &OfferedTest::method);
}

/// "Student" (1908), ten patients after two drugs.
inline Details sleepDetails(TBVNPTails tails = tbvNPTwoTailed) {
    const std::vector<double> first = {0.7, -1.6, -0.2, -1.2, -0.1, 3.4, 3.7, 0.8, 0.0, 2.0};
    const std::vector<double> second = {1.9, 0.8, 1.1, 0.1, -0.1, 4.4, 5.5, 1.6, 4.6, 3.4};
    return {
        offered(tbvNPMannU), tails, {}, {"Drug1", "Drug2"}, statistics::mannWhitney(first, second), 0.063};
}

inline Details groupDetails(std::optional<std::size_t> control = {}) {
    const std::vector<double> a = {1, 2, 3, 4, 5};
    const std::vector<double> b = {11, 12, 13, 14, 15};
    const std::vector<double> c = {2, 3, 4, 5, 6};
    const std::vector<std::span<const double>> groups = {a, b, c};
    return {offered(tbvNPKWallis),
            tbvNPTwoTailed,
            {},
            {"a", "b", "c"},
            statistics::kruskalWallis(groups, {}, control),
            0.5};
}

}  // namespace TBVNonPara
