#include "companion/array_utility.hpp"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace TBVNonPara {

namespace {

/// A key with the row it stands in, from 0. Ordered by row among equal keys, which makes any sort stable.
struct KeyedRow {
    double key;
    std::uint32_t row;

    friend bool operator<(const KeyedRow& a, const KeyedRow& b) noexcept {
        return a.key < b.key || (a.key == b.key && a.row < b.row);
    }
};

std::vector<KeyedRow> keyedRows(std::span<const double> keys) {
    std::vector<KeyedRow> order;
    order.reserve(keys.size());
    for (const double key : keys) {
        order.push_back({key, static_cast<std::uint32_t>(order.size())});
    }
    return order;
}

void reorder(std::span<double> column, const std::vector<KeyedRow>& order, std::vector<double>& moved) {
    std::ranges::transform(order, moved.begin(), [column](const KeyedRow& from) { return column[from.row]; });
    std::ranges::copy(moved, column.begin());
}

void copyColumns(const ValueGrid& from, ValueGrid& to, Long columnsBefore) {
    for (Long column = 1; column <= from.columns(); ++column) {
        std::ranges::copy(from.column(column), to.column(columnsBefore + column).begin());
    }
}

class OwnArrayUtility : public ArrayUtility {
 public:
    void SortRows(Grid<double>& table, Long /*reserved*/, Long column) const override {
        const std::span<const double> keys = table.column(column);
        if (std::ranges::is_sorted(keys)) {
            return;
        }
        std::vector<KeyedRow> order = keyedRows(keys);
        std::ranges::sort(order, std::less<>());
        std::vector<double> moved(order.size());
        for (Long each = 1; each <= table.columns(); ++each) {
            reorder(table.column(each), order, moved);
        }
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
};

}  // namespace

ObjectRef<ArrayUtility> createArrayUtility() {
    return makeObject<OwnArrayUtility>();
}

}  // namespace TBVNonPara
