#pragma once

#include <string>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/workbook/cell_store.hpp"
#include "tbvnonpara/workbook/format_store.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::rendering {

/// A finished report: a block of cells on a sheet. Rows and columns count from 1 at the block's top left and
/// must lie in it; a cell takes O(1).
///
///     request.Results();  // a clsNonPara on an EmbeddedApplication, without an output range
///     const auto sheet = application->activeSheet();
///     const ReportBlock report(*sheet, sheet->usedArea().value());
class TBVNONPARA_API ReportBlock {
 public:
    /// The stores, or the sheet, must outlive the block.
    ReportBlock(const workbook::CellStore& cells, const workbook::FormatStore& formats, const Rectangle& area)
        : m_Cells(&cells), m_Formats(&formats), m_Area(area) {}
    /// A block of a sheet.
    ReportBlock(const workbook::Sheet& sheet, const Rectangle& area)
        : ReportBlock(sheet.values(), sheet.formats(), area) {}

    /// How many rows the block has.
    [[nodiscard]] Index rows() const noexcept { return m_Area.rows(); }
    /// How many columns it has.
    [[nodiscard]] Index columns() const noexcept { return m_Area.columns(); }

    /// The value of a cell, to the last digit.
    [[nodiscard]] CellValue value(Index row, Index column) const {
        return m_Cells->at(m_Area.top + row - 1, m_Area.left + column - 1);
    }
    /// How a cell looks.
    [[nodiscard]] const workbook::CellFormat& format(Index row, Index column) const {
        return m_Formats->at(m_Area.top + row - 1, m_Area.left + column - 1);
    }

    /// The cell as the sheet shows it, on one line; a subscript s is the character for it.
    [[nodiscard]] std::string shown(Index row, Index column) const;

 private:
    const workbook::CellStore* m_Cells;
    const workbook::FormatStore* m_Formats;
    Rectangle m_Area;
};

}  // namespace TBVNonPara::rendering
