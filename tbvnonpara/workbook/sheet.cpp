#include "tbvnonpara/workbook/sheet.hpp"

#include <utility>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/workbook/book.hpp"
#include "tbvnonpara/workbook/host_error.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::workbook {

Sheet::Sheet(std::string name, std::weak_ptr<Book> book) : m_Name(std::move(name)), m_Book(std::move(book)) {
}

std::shared_ptr<Book> Sheet::book() const {
    std::shared_ptr<Book> book = m_Book.lock();
    if (book == nullptr) {
        refuse("The workbook of sheet \"" + m_Name + "\" is closed; open it again and name the sheet anew.");
    }
    return book;
}

WorkbookRef Sheet::GetParent() const {
    return book();
}

RangeRef Sheet::range(Areas areas) const {
    // The interface reads a sheet through const members, but a range of it may be written to.
    return std::make_shared<SheetRange>(std::const_pointer_cast<Sheet>(shared_from_this()), std::move(areas));
}

RangeRef Sheet::range(const std::vector<AddressArea>& areas) const {
    Areas cells;
    for (const AddressArea& area : areas) {
        cells.push_back(trimmed(area));
    }
    return range(std::move(cells));
}

/// Columns begin where the sheet's data begins and end with their own last value, rows likewise: a shorter
/// column has no blanks behind it, and a missing label is not replaced by the first number.
Rectangle Sheet::trimmed(const AddressArea& area) const {
    Rectangle cells = area.cells;
    if (!area.wholeColumns && !area.wholeRows) {
        return cells;
    }
    const std::optional<Rectangle> used = m_Values.usedArea();
    if (area.wholeColumns) {
        const Index last = m_Values.lastUsedRow(cells.left, cells.right);
        cells.top = last == 0 ? 1 : used->top;
        cells.bottom = last == 0 ? 1 : last;
        return cells;
    }
    Index last = 0;
    m_Values.visit(cells, [&](Index, Index column, const CellValue&) { last = column; });
    cells.left = last == 0 ? 1 : used->left;
    cells.right = last == 0 ? 1 : last;
    return cells;
}

RangeRef Sheet::GetCells() const {
    return range(Areas{wholeSheet});
}

RangeRef Sheet::GetCells(Long row, Long column) const {
    const Rectangle cell{toIndex(row), toIndex(column), toIndex(row), toIndex(column)};
    if (!cell.onSheet()) {
        refuse("Row " + std::to_string(row.value()) + ", column " + std::to_string(column.value()) +
               " lies outside sheet \"" + m_Name + "\" of 1048576 x 16384 cells.");
    }
    return range(Areas{cell});
}

RangeRef Sheet::GetRange(std::string_view address) const {
    const std::vector<AddressArea> areas = parseAddress(address);
    for (const AddressArea& area : areas) {
        if (area.sheet && !equalIgnoringCase(*area.sheet, m_Name)) {
            refuse("The address \"" + std::string(address) + "\" names sheet \"" + *area.sheet +
                   "\", but a range of sheet \"" + m_Name + "\" was asked for; leave the sheet's name out.");
        }
    }
    return range(areas);
}

RangeRef Sheet::GetRange(const RangeRef& first, const RangeRef& last) const {
    if (ownRange(first).sheet().get() != this) {
        refuse("The cells do not lie on sheet \"" + m_Name + "\"; ask the sheet that holds them.");
    }
    return rangeBetween(first, last);
}

void Sheet::Move(const WorksheetRef& after) {
    book()->moveSheet(*this, *after);
}

void Sheet::Activate() {
    book()->activateSheet(*this);
}

void Sheet::LetName(std::string_view name) {
    book()->renameSheet(*this, name);
}

void Sheet::Delete() {
    book()->removeSheet(*this);
}

void Sheet::turnOver() {
    CellStore turned;
    m_Values.visit(m_Values.usedArea().value_or(Rectangle()),
                   [&](Index row, Index column, const CellValue& value) {
                       const CellPlace place{column, row};
                       turned.set(place.row, place.column, value);
                   });
    UnreadableCells problems;
    for (const auto& [place, problem] : m_Unreadable) {
        problems.emplace(std::pair(place.second, place.first), problem);
    }
    m_Values = std::move(turned);
    m_Unreadable = std::move(problems);
    m_TurnedOver = !m_TurnedOver;
}

}  // namespace TBVNonPara::workbook
