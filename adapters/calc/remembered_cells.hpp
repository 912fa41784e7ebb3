#pragma once

#include <memory>
#include <vector>

#include "adapters/calc/cell_area.hpp"
#include "adapters/calc/documents.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/number_columns.hpp"

namespace TBVNonPara::calc {

/// The values of cells as they were read. The numbers below the last cell of a column that is none are kept
/// apart, to be shared.
class RememberedCells {
 public:
    RememberedCells(const SheetRef& sheet, const CellArea& area, ValueGrid values);

    [[nodiscard]] bool cover(const SheetRef& sheet, const CellArea& area) const;

    // Of an area that they cover:
    [[nodiscard]] ValueGrid values(const CellArea& area) const;
    [[nodiscard]] bool holdNumbers(const CellArea& area) const;
    /// For an area that holds numbers alone.
    [[nodiscard]] NumberColumns numbers(const CellArea& area) const;

 private:
    struct Tail {
        std::size_t first;
        std::shared_ptr<const std::vector<double>> numbers;
    };

    [[nodiscard]] std::size_t rowsAbove(const CellArea& area) const;
    [[nodiscard]] const Tail& tail(std::int32_t column) const;

    SheetRef m_Sheet;
    CellArea m_Area;
    ValueGrid m_Values;
    std::vector<Tail> m_Tails;
};

}  // namespace TBVNonPara::calc
