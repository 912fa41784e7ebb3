#include "adapters/calc/remembered_cells.hpp"

#include <algorithm>
#include <span>
#include <utility>

namespace TBVNonPara::calc {

RememberedCells::RememberedCells(const SheetRef& sheet, const CellArea& area, ValueGrid values)
    : m_Sheet(sheet), m_Area(area), m_Values(std::move(values)) {
    for (Index column = 1; column <= area.columns(); ++column) {
        const std::span<const CellValue> cells = m_Values.column(column);
        std::size_t first = cells.size();
        while (first > 0 && std::holds_alternative<double>(cells[first - 1])) {
            first -= 1;
        }
        std::vector<double> numbers;
        numbers.reserve(cells.size() - first);
        for (const CellValue& cell : cells.subspan(first)) {
            numbers.push_back(std::get<double>(cell));
        }
        m_Tails.push_back({first, std::make_shared<const std::vector<double>>(std::move(numbers))});
    }
}

bool RememberedCells::cover(const SheetRef& sheet, const CellArea& area) const {
    return m_Area.contains(area) && m_Sheet == sheet;
}

std::size_t RememberedCells::rowsAbove(const CellArea& area) const {
    return static_cast<std::size_t>(area.top - m_Area.top);
}

const RememberedCells::Tail& RememberedCells::tail(std::int32_t column) const {
    return m_Tails[static_cast<std::size_t>(column - m_Area.left)];
}

ValueGrid RememberedCells::values(const CellArea& area) const {
    ValueGrid result(area.rows(), area.columns());
    for (Index column = 1; column <= area.columns(); ++column) {
        const auto source = m_Values.column(column + area.left - m_Area.left);
        std::ranges::copy(source.subspan(rowsAbove(area), static_cast<std::size_t>(area.rows())),
                          result.column(column).begin());
    }
    return result;
}

bool RememberedCells::holdNumbers(const CellArea& area) const {
    for (std::int32_t column = area.left; column <= area.right; ++column) {
        if (tail(column).first > rowsAbove(area) || area.bottom < m_Area.bottom) {
            return false;
        }
    }
    return true;
}

NumberColumns RememberedCells::numbers(const CellArea& area) const {
    NumberColumns columns(area.columns());
    for (std::int32_t column = area.left; column <= area.right; ++column) {
        const Tail& kept = tail(column);
        columns.append(Index(column) - area.left + 1, kept.numbers,
                       std::span(*kept.numbers).subspan(rowsAbove(area) - kept.first));
    }
    return columns;
}

}  // namespace TBVNonPara::calc
