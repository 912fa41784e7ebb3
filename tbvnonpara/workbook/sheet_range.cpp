#include "tbvnonpara/workbook/sheet_range.hpp"

#include <cmath>
#include <utility>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/workbook/book.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

/// More cells than this are not read into a grid or filled one by one: two gigabytes.
constexpr Index mostCellsAtOnce = Index(1) << 27;

void requireSensibleSize(const Rectangle& area) {
    if (area.cells() > mostCellsAtOnce) {
        raise(RuntimeError::OutOfMemory);
    }
}

/// A cell holds no infinity and no NaN; what would be one shows as #NUM!.
CellValue storable(const CellValue& value) {
    const auto* number = std::get_if<double>(&value);
    return number == nullptr || std::isfinite(*number) ? value : CellValue(CellError::Number);
}

/// What is wrong with a cell that has no value to be read.
std::string problemOf(const Sheet& sheet, Index row, Index column) {
    if (std::get<CellError>(sheet.value(row, column)) == uncalculated) {
        return " holds a formula whose result is not in the file; open the file in a spreadsheet, let it "
               "calculate and save it.";
    }
    const auto known = sheet.unreadableCells().find({row, column});
    return " cannot be read" +
           (known == sheet.unreadableCells().end() ? std::string() : ": " + known->second) +
           "; correct the cell in a spreadsheet and save the file.";
}

bool hasNoValue(const CellValue& value) noexcept {
    const auto* error = std::get_if<CellError>(&value);
    return error != nullptr && (*error == uncalculated || *error == unreadable);
}

std::string sizeText(Index rows, Index columns) {
    return std::to_string(rows) + " x " + std::to_string(columns);
}

}  // namespace

SheetRange::SheetRange(std::shared_ptr<Sheet> sheet, Areas areas)
    : m_Sheet(std::move(sheet)), m_Areas(std::move(areas)) {
}

RangeRef SheetRange::GetCells(Long row, Long column) const {
    const Index sheetRow = first().top + toIndex(row) - 1;
    const Index sheetColumn = first().left + toIndex(column) - 1;
    const Rectangle cell{sheetRow, sheetColumn, sheetRow, sheetColumn};
    if (!cell.onSheet()) {
        refuse("Row " + std::to_string(row.value()) + ", column " + std::to_string(column.value()) +
               " counted from " + fullAddress() + " lies outside the sheet of 1048576 x 16384 cells.");
    }
    return m_Sheet->range(Areas{cell});
}

RangeRef SheetRange::GetAreas(Long area) const {
    if (area < Long(1) || area > GetAreasCount()) {
        refuse("There is no area " + std::to_string(area.value()) + " in " + fullAddress() + ", which has " +
               std::to_string(m_Areas.size()) + ".");
    }
    return m_Sheet->range(Areas{m_Areas[static_cast<std::size_t>(area.value() - 1)]});
}

std::string SheetRange::GetAddress() const {
    return absoluteAddress(m_Areas);
}

std::string SheetRange::fullAddress() const {
    return quotedSheetName(m_Sheet->name()) + '!' + GetAddress();
}

ValueGrid SheetRange::GetValue() const {
    requireSensibleSize(first());
    requireCalculated(*m_Sheet, {first()});
    ValueGrid grid(first().rows(), first().columns());
    for (Index column = 1; column <= first().columns(); ++column) {
        m_Sheet->values().read(first().top, first().left + column - 1, grid.column(column));
    }
    return grid;
}

bool SheetRange::HoldsNumbers(Long firstRow) const {
    Rectangle rows = first();
    rows.top += toIndex(firstRow) - 1;
    return rows.top <= rows.bottom && m_Sheet->values().holdsNumbers(rows);
}

void SheetRange::LetValue(const CellValue& value) {
    if (!isEmpty(value)) {
        for (const Rectangle& area : m_Areas) {
            requireSensibleSize(area);
        }
    }
    const CellValue stored = storable(value);
    for (const Rectangle& area : m_Areas) {
        m_Sheet->values().fill(area, stored);
        m_Sheet->formats().dropSubscripts(area);
    }
}

void SheetRange::LetValue(std::span<const CellValue> values) {
    if (first().rows() != 1 || static_cast<std::size_t>(first().columns()) != values.size()) {
        refuse("A list of " + std::to_string(values.size()) + " values cannot be written to " +
               fullAddress() + "; it needs one row of as many cells.");
    }
    Index column = first().left;
    for (const CellValue& value : values) {
        m_Sheet->values().set(first().top, column, storable(value));
        column += 1;
    }
    m_Sheet->formats().dropSubscripts(first());
}

void SheetRange::LetValue(const ValueGrid& values) {
    if (values.rows() != GetRowsCount() || values.columns() != GetColumnsCount()) {
        refuse("A grid of " + sizeText(toIndex(values.rows()), toIndex(values.columns())) +
               " values cannot be written to " + fullAddress() + ", which has " +
               sizeText(first().rows(), first().columns()) + " cells.");
    }
    for (Index column = 1; column <= first().columns(); ++column) {
        m_Sheet->values().write(first().top, first().left + column - 1, values.column(column));
        Index row = first().top;
        for (const CellValue& value : values.column(column)) {
            const auto* number = std::get_if<double>(&value);
            if (number != nullptr && !std::isfinite(*number)) {
                m_Sheet->values().set(row, first().left + column - 1, CellError::Number);
            }
            row += 1;
        }
    }
    m_Sheet->formats().dropSubscripts(first());
}

void SheetRange::Clear() {
    for (const Rectangle& area : m_Areas) {
        m_Sheet->values().clear(area);
        m_Sheet->formats().clear(area);
    }
}

void SheetRange::Copy() {
    if (m_Areas.size() > 1) {
        refuse("Several areas cannot be copied at once: " + fullAddress() + ". Copy one after the other.");
    }
    auto clipping = std::make_shared<Clipping>();
    clipping->rows = first().rows();
    clipping->columns = first().columns();
    clipping->values.copy(m_Sheet->values(), first(), 1, 1);
    clipping->formats.copy(m_Sheet->formats(), first(), 1, 1);
    m_Sheet->book()->application()->setClipboard(std::move(clipping));
}

void SheetRange::PasteSpecial(PasteKind kind) {
    const std::shared_ptr<const Clipping> clipping = m_Sheet->book()->application()->clipboard();
    if (clipping == nullptr) {
        refuse("There is nothing to paste at " + fullAddress() + "; copy a range first.");
    }
    const Rectangle source{1, 1, clipping->rows, clipping->columns};
    const Rectangle target{first().top, first().left, first().top + source.bottom - 1,
                           first().left + source.right - 1};
    if (!target.onSheet()) {
        refuse("The " + sizeText(source.rows(), source.columns()) + " cells that were copied do not fit on " +
               "the sheet at " + fullAddress() + "; choose a place further up or to the left.");
    }
    if (kind != PasteKind::All && kind != PasteKind::Values && kind != PasteKind::Formats) {
        refuse("There is no kind of paste with the number " + std::to_string(static_cast<int>(kind)) + ".");
    }
    if (kind != PasteKind::Formats) {
        m_Sheet->values().copy(clipping->values, source, target.top, target.left);
        m_Sheet->formats().dropSubscripts(target);
    }
    if (kind != PasteKind::Values) {
        m_Sheet->formats().copy(clipping->formats, source, target.top, target.left);
    }
}

void SheetRange::Select() {
    const std::shared_ptr<EmbeddedApplication> application = m_Sheet->book()->application();
    if (application->activeSheet() != m_Sheet) {
        refuse("Cells of sheet \"" + m_Sheet->name() +
               "\" cannot be selected while another sheet is active; activate the sheet first.");
    }
    application->setSelection(m_Sheet->range(m_Areas));
}

void requireCalculated(const Sheet& sheet, const Areas& areas) {
    for (const Rectangle& area : areas) {
        sheet.values().visitMixed(area, [&](Index row, Index column, const CellValue& value) {
            if (hasNoValue(value)) {
                const std::string cell = absoluteAddress(Rectangle{row, column, row, column});
                refuse(quotedSheetName(sheet.name()) + '!' + cell + problemOf(sheet, row, column));
            }
        });
    }
}

const SheetRange& ownRange(const RangeRef& range) {
    const auto* own = dynamic_cast<const SheetRange*>(&*range);
    if (own == nullptr) {
        refuse("The range belongs to another application.");
    }
    return *own;
}

RangeRef rangeBetween(const RangeRef& first, const RangeRef& last) {
    const SheetRange& from = ownRange(first);
    const SheetRange& to = ownRange(last);
    if (from.sheet() != to.sheet()) {
        refuse("A range cannot reach from sheet \"" + from.sheet()->name() + "\" to sheet \"" +
               to.sheet()->name() + "\"; name two cells of one sheet.");
    }
    return from.sheet()->range(Areas{around(from.areas().front(), to.areas().front())});
}

}  // namespace TBVNonPara::workbook
