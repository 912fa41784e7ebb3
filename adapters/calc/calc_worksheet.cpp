#include "adapters/calc/calc_worksheet.hpp"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/XProtectable.hpp>

#include "adapters/calc/calc_range.hpp"
#include "adapters/calc/macro_modules.hpp"
#include "adapters/calc/placing.hpp"

namespace TBVNonPara::calc {

namespace {

CellArea wholeOf(const SheetRef& sheet) {
    const auto size = query<css::table::XColumnRowRange>(sheet);
    return {0, 0, given(size->getColumns())->getCount() - 1, given(size->getRows())->getCount() - 1};
}

/// The spreadsheet itself gives no reason.
void refuseDeleting(const DocumentRef& document, const SheetRef& sheet) {
    if (query<css::util::XProtectable>(document)->isProtected()) {
        raiseHostError("The document's structure is protected, so its sheets stay; remove the protection.");
    }
    if (query<css::container::XIndexAccess>(sheetsOf(document))->getCount() == 1) {
        raiseHostError("The sheet \"" + toUtf8(nameOf(sheet)) +
                       "\" is the only one of its document and cannot be deleted.");
    }
}

}  // namespace

RangeRef cellOf(const std::shared_ptr<Session>& session, const DocumentRef& document, const SheetRef& sheet,
                Long row, Long column) {
    const std::int32_t left = (column - 1).value();
    const std::int32_t top = (row - 1).value();
    const CellArea cell{left, top, left, top};
    // Nearly every cell that is asked for lies in what all sheets have; the others are looked up.
    const bool common = left >= 0 && top >= 0 && left < 256 && top < 65536;
    if (!common && !hosted([&] { return wholeOf(sheet).contains(cell); })) {
        raiseHostError("There is no cell in row " + std::to_string(row.value()) + ", column " +
                       std::to_string(column.value()) + " of the sheet.");
    }
    return makeObject<CalcRange>(session, SheetAreas{document, sheet, {cell}});
}

CalcWorksheet::CalcWorksheet(std::shared_ptr<Session> session, const DocumentRef& document,
                             const SheetRef& sheet)
    : m_Session(std::move(session)), m_Document(document), m_Sheet(sheet) {
}

std::string CalcWorksheet::GetName() const {
    return hosted([&] { return toUtf8(nameOf(m_Sheet)); });
}

WorkbookRef CalcWorksheet::GetParent() const {
    return makeObject<CalcWorkbook>(m_Session, m_Document);
}

RangeRef CalcWorksheet::GetCells() const {
    const CellArea all = hosted([&] { return wholeOf(m_Sheet); });
    return makeObject<CalcRange>(m_Session, SheetAreas{m_Document, m_Sheet, {all}});
}

RangeRef CalcWorksheet::GetCells(Long row, Long column) const {
    return cellOf(m_Session, m_Document, m_Sheet, row, column);
}

RangeRef CalcWorksheet::GetRange(std::string_view address) const {
    return hosted([&]() -> RangeRef {
        return makeObject<CalcRange>(m_Session, resolve(m_Document, m_Sheet, address));
    });
}

RangeRef CalcWorksheet::GetRange(const RangeRef& first, const RangeRef& last) const {
    return rangeBetween(m_Session, first, last);
}

void CalcWorksheet::Move(const WorksheetRef& after) {
    hosted([&] {
        const std::string name = after->GetName();
        const auto position =
            static_cast<std::int16_t>(positionOf(sheetNamed(m_Document, fromUtf8(name))) + 1);
        m_Session->beforeChange(m_Document);
        sheetsOf(m_Document)->moveByName(nameOf(m_Sheet), position);
    });
}

void CalcWorksheet::Activate() {
    hosted([&] { activate(*m_Session, m_Document, m_Sheet); });
}

void CalcWorksheet::LetName(std::string_view name) {
    hosted([&] {
        const OUString wanted = fromUtf8(name);
        const OUString before = nameOf(m_Sheet);
        m_Session->beforeChange(m_Document);
        query<css::container::XNamed>(m_Sheet)->setName(wanted);
        // A name that cannot be had is passed over in silence.
        if (nameOf(m_Sheet) != wanted) {
            raiseHostError("The sheet cannot be named \"" + std::string(name) +
                           "\": there is such a sheet already, or no sheet may have this name.");
        }
        m_Session->renameAddedSheet(m_Document, before, wanted);
    });
}

void CalcWorksheet::Delete() {
    hosted([&] {
        refuseDeleting(m_Document, m_Sheet);
        m_Session->beforeChange(m_Document);
        if (m_Session->isAddedSheet(m_Document, nameOf(m_Sheet))) {
            m_Session->removeAddedSheet();
        } else {
            removeSheet(m_Document, nameOf(m_Sheet));
        }
    });
}

CalcWorkbook::CalcWorkbook(std::shared_ptr<Session> session, const DocumentRef& document)
    : m_Session(std::move(session)), m_Document(document) {
}

Long CalcWorkbook::GetWorksheetsCount() const {
    return hosted(
        [&] { return Long(query<css::container::XIndexAccess>(sheetsOf(m_Document))->getCount()); });
}

WorksheetRef CalcWorkbook::GetWorksheets(Long position) const {
    return hosted([&]() -> WorksheetRef {
        return makeObject<CalcWorksheet>(m_Session, m_Document, sheetAt(m_Document, position.value() - 1));
    });
}

WorksheetRef CalcWorkbook::GetWorksheets(std::string_view name) const {
    return hosted([&]() -> WorksheetRef {
        return makeObject<CalcWorksheet>(m_Session, m_Document, sheetNamed(m_Document, fromUtf8(name)));
    });
}

void CalcWorkbook::Activate() {
    hosted([&] { activate(*m_Session, m_Document); });
}

}  // namespace TBVNonPara::calc
