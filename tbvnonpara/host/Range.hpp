#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/object_ref.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"
#include "tbvnonpara/host/formatting.hpp"

namespace TBVNonPara {

class Range;
class Worksheet;
class Workbook;
using RangeRef = ObjectRef<Range>;
using WorksheetRef = ObjectRef<Worksheet>;
using WorkbookRef = ObjectRef<Workbook>;

/// Cells of one worksheet: one rectangle, or several (areas) in the order in which they were named. Rows,
/// columns, cells and values are those of the first area. Every operation raises the host's error when the
/// host refuses it.
class Range {
 public:
    virtual ~Range() = default;

    /// The cell at a row and column counted from 1 at the first area's top left; it may lie outside the
    /// range, but not outside the sheet.
    [[nodiscard]] virtual RangeRef GetCells(Long row, Long column) const = 0;
    [[nodiscard]] virtual Long GetRowsCount() const = 0;
    [[nodiscard]] virtual Long GetColumnsCount() const = 0;
    [[nodiscard]] virtual Long GetAreasCount() const = 0;
    [[nodiscard]] virtual RangeRef GetAreas(Long area) const = 0;
    [[nodiscard]] virtual WorksheetRef GetWorksheet() const = 0;

    /// "$A$1:$B$9", several areas joined by commas. The local address is the same in the user's notation.
    [[nodiscard]] virtual std::string GetAddress() const = 0;
    [[nodiscard]] virtual std::string GetAddressLocal() const = 0;

    /// The values, also of a single cell, as a grid: rows x columns of the first area.
    [[nodiscard]] virtual ValueGrid GetValue() const = 0;

    /// One value into every cell. A text stays that text, whatever it looks like.
    virtual void LetValue(const CellValue& value) = 0;
    /// A list across a one-row range, left to right.
    virtual void LetValue(std::span<const CellValue> values) = 0;
    /// A grid as large as the range: a block of data in one call.
    virtual void LetValue(const ValueGrid& values) = 0;

    /// Empties the cells and takes their formats away.
    virtual void Clear() = 0;

    virtual void LetNumberFormat(std::string_view format) = 0;
    virtual void LetHorizontalAlignment(HorizontalAlignment alignment) = 0;
    virtual void LetInteriorColorIndex(Integer index) = 0;
    virtual void LetFontBold(bool bold) = 0;
    virtual void LetBorder(BorderEdge edge, BorderLine line) = 0;
    /// Makes `length` characters of a cell's text from `start` (counted from 1) subscript, or plain again.
    virtual void LetCharactersFontSubscript(Long start, Long length, bool subscript) = 0;

    virtual void Copy() = 0;
    /// Pastes what was copied last with this range's first cell as its top left.
    virtual void PasteSpecial(PasteKind kind) = 0;
    virtual void Select() = 0;
};

}  // namespace TBVNonPara
