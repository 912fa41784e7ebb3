#include "tbvnonpara/companion/ArrayUtility.hpp"

#include <algorithm>
#include <numeric>

namespace TBVNonPara {

AscendingOrder ArrayUtility::OrderOf(std::span<const double> values) const {
    constexpr Index Value = 1;
    constexpr Index Position = 2;
    Grid<double> table(Long(values.size()), 2);
    std::ranges::copy(values, table.column(Value).begin());
    std::iota(table.column(Position).begin(), table.column(Position).end(), 0.0);
    SortRows(table, 0, Value);

    AscendingOrder order;
    order.positions.resize(values.size());
    std::ranges::transform(table.column(Position), order.positions.begin(),
                           [](double position) { return static_cast<std::uint32_t>(position); });
    order.ties = tiesOf(values, order.positions);
    return order;
}

}  // namespace TBVNonPara
