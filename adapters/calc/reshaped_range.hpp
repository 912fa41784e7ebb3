#pragma once

#include <memory>
#include <vector>

#include "adapters/calc/calc_range.hpp"
#include "tbvnonpara/reshaping/column.hpp"

namespace TBVNonPara::calc {

/// The columns that were made of a range, as a block: labels where there are some, short columns blank at
/// their ends.
class ReshapedColumns {
 public:
    /// Takes the values out of the columns.
    ReshapedColumns(SheetAreas origin, std::vector<reshaping::Column> columns, bool headers);

    [[nodiscard]] CellArea whole() const;
    [[nodiscard]] ValueGrid values(const CellArea& part) const;
    /// Where a value of the block, counted from 0, stands on the user's sheet.
    [[nodiscard]] SheetAreas originOf(std::int32_t row, std::int32_t column) const;
    [[nodiscard]] const SheetAreas& origin() const noexcept { return m_Origin; }

 private:
    SheetAreas m_Origin;
    std::vector<reshaping::Column> m_Columns;
    ValueGrid m_Values;
    std::int32_t m_Labels;
};

using ReshapedColumnsRef = std::shared_ptr<const ReshapedColumns>;

/// A range of the user's that is read as the columns that were made of it, under its own address.
class ReshapedRange : public CalcRange {
 public:
    ReshapedRange(const std::shared_ptr<Session>& session, const ReshapedColumnsRef& columns);

    [[nodiscard]] RangeRef GetCells(Long row, Long column) const override;
    [[nodiscard]] Long GetRowsCount() const override { return m_Part.rows(); }
    [[nodiscard]] Long GetColumnsCount() const override { return m_Part.columns(); }
    [[nodiscard]] Long GetAreasCount() const override { return 1; }
    [[nodiscard]] RangeRef GetAreas(Long area) const override;
    [[nodiscard]] ValueGrid GetValue() const override { return m_Columns->values(m_Part); }

    /// The block between two cells of the same columns.
    [[nodiscard]] RangeRef to(const ReshapedRange& last) const;

    ReshapedRange(const std::shared_ptr<Session>& session, ReshapedColumnsRef columns, SheetAreas shown,
                  const CellArea& part);

 private:
    std::shared_ptr<Session> m_Session;
    ReshapedColumnsRef m_Columns;
    CellArea m_Part;
};

}  // namespace TBVNonPara::calc
