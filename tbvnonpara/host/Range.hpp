#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/number_columns.hpp"
#include "tbvnonpara/core/object_ref.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"
#include "tbvnonpara/host/formatting.hpp"

namespace TBVNonPara {

class Range;
class Worksheet;
class Workbook;
/// Some cells, or none.
using RangeRef = ObjectRef<Range>;
/// A worksheet, or none.
using WorksheetRef = ObjectRef<Worksheet>;
/// A workbook, or none.
using WorkbookRef = ObjectRef<Workbook>;

/// Cells of one worksheet: one rectangle, or several (areas) in the order in which they were named. Rows,
/// columns, cells and values are those of the first area. Every operation raises the host's error when the
/// host refuses it.
class TBVNONPARA_API Range {
 public:
    /// Hosts derive from this class.
    virtual ~Range() = default;

    /// The cell at a row and column counted from 1 at the first area's top left; it may lie outside the
    /// range, but not outside the sheet.
    [[nodiscard]] virtual RangeRef GetCells(Long row, Long column) const = 0;
    /// How many rows the first area has.
    [[nodiscard]] virtual Long GetRowsCount() const = 0;
    /// How many columns the first area has.
    [[nodiscard]] virtual Long GetColumnsCount() const = 0;
    /// How many areas there are, from 1 on.
    [[nodiscard]] virtual Long GetAreasCount() const = 0;
    /// One area as a range, counted from 1.
    [[nodiscard]] virtual RangeRef GetAreas(Long area) const = 0;
    /// The sheet that the cells lie on.
    [[nodiscard]] virtual WorksheetRef GetWorksheet() const = 0;

    /// "$A$1:$B$9", several areas joined by commas, without the sheet's name.
    [[nodiscard]] virtual std::string GetAddress() const = 0;
    /// The same in the user's notation.
    [[nodiscard]] virtual std::string GetAddressLocal() const = 0;

    /// The values, also of a single cell, as a grid: rows x columns of the first area.
    [[nodiscard]] virtual ValueGrid GetValue() const = 0;

    /// Whether the first area has rows from this one on, counted from 1, and a number in each of their cells.
    /// A host that says so gives the numbers by GetNumbers; one that keeps no numbers apart leaves both as
    /// they are, and its values are looked at one by one.
    [[nodiscard]] virtual bool HoldsNumbers(Long /*firstRow*/) const { return false; }
    /// The numbers of the first area, for a range that holds nothing else.
    [[nodiscard]] virtual NumberColumns GetNumbers() const { raise(RuntimeError::TypeMismatch); }

    /// One value into every cell. A text stays that text, whatever it looks like.
    virtual void LetValue(const CellValue& value) = 0;
    /// A list across a one-row range, left to right.
    virtual void LetValue(std::span<const CellValue> values) = 0;
    /// A grid as large as the range: a block of data in one call.
    virtual void LetValue(const ValueGrid& values) = 0;

    /// Empties the cells and takes their formats away.
    virtual void Clear() = 0;

    /// The format of numbers, "0.0000" or "General", in English notation.
    virtual void LetNumberFormat(std::string_view format) = 0;
    /// Where the text stands in its cell.
    virtual void LetHorizontalAlignment(HorizontalAlignment alignment) = 0;
    /// The colour behind the text: an index of the host's palette, or noInteriorColour.
    virtual void LetInteriorColorIndex(Integer index) = 0;
    /// Bold or plain.
    virtual void LetFontBold(bool bold) = 0;
    /// A line along one side of the whole range.
    virtual void LetBorder(BorderEdge edge, BorderLine line) = 0;
    /// Makes `length` characters of a cell's text from `start` (counted from 1) subscript, or plain again.
    virtual void LetCharactersFontSubscript(Long start, Long length, bool subscript) = 0;

    /// Keeps values and formats for PasteSpecial.
    virtual void Copy() = 0;
    /// Pastes what was copied last with this range's first cell as its top left.
    virtual void PasteSpecial(PasteKind kind) = 0;
    /// Makes the cells the selection of the user.
    virtual void Select() = 0;
};

}  // namespace TBVNonPara
