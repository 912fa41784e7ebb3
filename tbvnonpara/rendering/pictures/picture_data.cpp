#include "tbvnonpara/rendering/pictures/picture_data.hpp"

#include <algorithm>

namespace TBVNonPara::rendering {

double quantile(const std::vector<double>& sorted, double part) {
    const double place = part * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const double above = sorted[std::min(below + 1, sorted.size() - 1)];
    const double weight = place - static_cast<double>(below);
    return sorted[below] * (1 - weight) + above * weight;
}

}  // namespace TBVNonPara::rendering
