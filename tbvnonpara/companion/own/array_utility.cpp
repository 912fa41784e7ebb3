#include "tbvnonpara/companion/own/array_utility.hpp"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace TBVNonPara {

namespace {

void reorder(std::span<double> column, std::span<const std::uint32_t> order, std::vector<double>& moved) {
    std::ranges::transform(order, moved.begin(), [column](std::uint32_t from) { return column[from]; });
    std::ranges::copy(moved, column.begin());
}

void copyColumns(const ValueGrid& from, ValueGrid& to, Long columnsBefore) {
    for (Long column = 1; column <= from.columns(); ++column) {
        std::ranges::copy(from.column(column), to.column(columnsBefore + column).begin());
    }
}

class OwnArrayUtility : public ArrayUtility {
 public:
    explicit OwnArrayUtility(std::size_t threads) : m_Threads(threads) {}

    void SortRows(Grid<double>& table, Long /*reserved*/, Long column) const override {
        const std::span<double> keys = table.column(column);
        if (std::ranges::is_sorted(keys)) {
            return;
        }
        if (table.columns() == Long(1)) {
            return sortAscending(keys);
        }
        const AscendingOrder order = ascendingOrder(keys);
        std::vector<double> moved(order.positions.size());
        for (Long each = 1; each <= table.columns(); ++each) {
            reorder(table.column(each), order.positions, moved);
        }
    }

    [[nodiscard]] AscendingOrder OrderOf(std::span<const double> values) const override {
        return ascendingOrder(values, m_Threads);
    }

    [[nodiscard]] ValueGrid MakeTwoDimensional(const Array<CellValue>& array) const override {
        ValueGrid grid(array.size(), 1);
        std::ranges::copy(array.elements(), grid.column(1).begin());
        return grid;
    }

    [[nodiscard]] ValueGrid JoinColumns(const ValueGrid& left, const ValueGrid& right) const override {
        ValueGrid joined(std::max(left.rows(), right.rows()), left.columns() + right.columns());
        copyColumns(left, joined, 0);
        copyColumns(right, joined, left.columns());
        return joined;
    }

    [[nodiscard]] bool SortsAtAnyTime() const noexcept override { return true; }

 private:
    std::size_t m_Threads;
};

}  // namespace

ObjectRef<ArrayUtility> createArrayUtility(std::size_t threads) {
    return makeObject<OwnArrayUtility>(threads);
}

}  // namespace TBVNonPara
