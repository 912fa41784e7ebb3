#include "tbvnonpara/statistics/midranks.hpp"

#include <algorithm>
#include <numeric>

#include "tbvnonpara/ordering/ascending_order.hpp"

namespace TBVNonPara::statistics {

Midranks midranks(std::span<const double> values) {
    const AscendingOrder order = ascendingOrder(values);
    Midranks ranked{std::vector<double>(values.size()), std::vector<double>(values.size()), {}};
    std::iota(ranked.ascending.begin(), ranked.ascending.end(), 1.0);
    for (const Tie& tie : order.ties) {
        const double t = tie.size;
        std::fill_n(ranked.ascending.begin() + tie.first, tie.size, tie.first + (t + 1) / 2);
        ranked.ties.groups += 1;
        ranked.ties.values += tie.size;
        ranked.ties.largest = std::max<std::size_t>(ranked.ties.largest, tie.size);
        ranked.ties.sum += t * t * t - t;
    }
    for (std::size_t place = 0; place < values.size(); ++place) {
        ranked.ranks[order.positions[place]] = ranked.ascending[place];
    }
    const auto n = static_cast<double>(values.size());
    ranked.ties.factor = n > 1 ? 1 - ranked.ties.sum / (n * n * n - n) : 1;
    return ranked;
}

}  // namespace TBVNonPara::statistics
