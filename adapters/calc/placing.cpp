#include "adapters/calc/placing.hpp"

#include <algorithm>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/datatransfer/XTransferableSupplier.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangeFormula.hpp>
#include <com/sun/star/sheet/XCellRangeMovement.hpp>
#include <com/sun/star/sheet/XSheetAnnotationsSupplier.hpp>
#include <com/sun/star/sheet/XSheetOperation.hpp>
#include <com/sun/star/sheet/XSpreadsheets2.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>

#include "adapters/calc/column_widths.hpp"
#include "adapters/calc/macro_modules.hpp"
#include "adapters/calc/main_thread.hpp"
#include "adapters/calc/obstacles.hpp"
#include "adapters/calc/reading.hpp"
#include "adapters/calc/writing.hpp"

namespace TBVNonPara::calc {

namespace {

using css::sheet::XSpreadsheetView;

Reference<css::table::XCellRange> cellsOf(const SheetRef& sheet, const CellArea& area) {
    return sheet->getCellRangeByPosition(area.left, area.top, area.right, area.bottom);
}

void selectIn(const Reference<XSpreadsheetView>& view, const SheetRef& sheet, const CellArea& area) {
    query<css::view::XSelectionSupplier>(view)->select(css::uno::Any(cellsOf(sheet, area)));
}

void clear(const SheetRef& sheet, const CellArea& area) {
    namespace Flags = css::sheet::CellFlags;
    query<css::sheet::XSheetOperation>(cellsOf(sheet, area))
        ->clearContents(Flags::VALUE | Flags::DATETIME | Flags::STRING | Flags::ANNOTATION | Flags::FORMULA |
                        Flags::HARDATTR | Flags::STYLES | Flags::EDITATTR | Flags::FORMATTED);
}

css::table::CellAddress cornerOf(const SheetRef& sheet, const CellArea& area) {
    return {positionOf(sheet), area.left, area.top};
}

css::table::CellRangeAddress addressOf(const SheetRef& sheet, const CellArea& area) {
    return {positionOf(sheet), area.left, area.top, area.right, area.bottom};
}

void copyWithin(const SheetRef& source, const CellArea& area, const SheetRef& target, const CellArea& block) {
    query<css::sheet::XCellRangeMovement>(target)->copyRange(cornerOf(target, block),
                                                             addressOf(source, area));
}

/// From one view into the other, as by the clipboard but without touching it.
void transfer(const SheetRef& source, const CellArea& area, const Reference<XSpreadsheetView>& sourceView,
              const SheetRef& target, const CellArea& block, const Reference<XSpreadsheetView>& targetView) {
    selectIn(sourceView, source, area);
    const auto report = query<css::datatransfer::XTransferableSupplier>(sourceView)->getTransferable();
    if (targetView->getActiveSheet() != target) {
        targetView->setActiveSheet(target);
    }
    selectIn(targetView, target, {block.left, block.top, block.left, block.top});
    query<css::datatransfer::XTransferableSupplier>(targetView)->insertTransferable(report);
}

/// Without the views: the whole sheet comes over, the cells are copied from it and it goes again, also where
/// the office brought it and failed afterwards.
void copyThroughImportedSheet(const SheetAreas& source, const SheetAreas& target, const CellArea& block) {
    const auto sheets = query<css::sheet::XSpreadsheets2>(sheetsOf(target.document));
    const auto positions = query<css::container::XIndexAccess>(sheets);
    const sal_Int32 last = positions->getCount();
    const MacroModules modules(target.document);
    const auto removeImported = [&] {
        if (positions->getCount() > last) {
            sheets->removeByName(nameOf(sheetAt(target.document, last)));
        }
        modules.removeAdded();
    };
    try {
        sheets->importSheet(source.document, nameOf(source.sheet), last);
        copyWithin(sheetAt(target.document, last), source.areas.front(), target.sheet, block);
    } catch (...) {
        removeImported();
        throw;
    }
    removeImported();
}

void paste(const Session& session, const SheetAreas& source, const SheetAreas& target,
           const CellArea& block) {
    clear(target.sheet, block);
    if (source.document == target.document) {
        copyWithin(source.sheet, source.areas.front(), target.sheet, block);
        return;
    }
    const auto from = viewOf(source.document);
    const auto to = viewOf(target.document);
    // From a helper process a view could only be used at the risk of both processes waiting for each other.
    const bool transferred =
        from.is() && to.is() && isInsideOffice() && tryOnMainThread(session.context(), [&] {
            transfer(source.sheet, source.areas.front(), from, target.sheet, block, to);
        });
    if (!transferred) {
        copyThroughImportedSheet(source, target, block);
    }
}

using CellData = css::uno::Sequence<css::uno::Sequence<css::uno::Any>>;

CellData dataOf(const SheetRef& sheet, const CellArea& area) {
    return query<css::sheet::XCellRangeData>(cellsOf(sheet, area))->getDataArray();
}

/// What a block held, for a document that keeps no undo steps: its values and formulas.
class HeldCells {
 public:
    HeldCells(const Session& session, const SheetRef& sheet, const CellArea& block)
        : m_Cells(cellsOf(sheet, block), css::uno::UNO_QUERY_THROW) {
        if (!session.canTakeBack()) {
            m_Formulas = m_Cells->getFormulaArray();
        }
    }

    void restore(Session& session) const {
        if (m_Formulas.hasElements()) {
            m_Cells->setFormulaArray(m_Formulas);
        } else {
            session.takeBack();
        }
        session.removeAddedSheet();
    }

 private:
    Reference<css::sheet::XCellRangeFormula> m_Cells;
    css::uno::Sequence<css::uno::Sequence<OUString>> m_Formulas;
};

/// A report that does not arrive whole is taken back, whatever kept it from arriving.
void placeAll(Session& session, const SheetAreas& source, const SheetAreas& target, const CellArea& block) {
    const CellData report = dataOf(source.sheet, source.areas.front());
    const HeldCells before(session, target.sheet, block);
    try {
        paste(session, source, target, block);
    } catch (...) {
        before.restore(session);
        throw;
    }
    if (dataOf(target.sheet, block) != report) {
        before.restore(session);
        raiseHostError("The report did not arrive whole in " + absoluteAddress(block) + " of the sheet " +
                       toUtf8(nameOf(target.sheet)) +
                       ", for example because a macro changes cells there; what stood there is back. Choose "
                       "another place for the report.");
    }
}

/// What a report leaves free of the cells of the one whose place it took.
void clearRest(const SheetRef& sheet, const CellArea& replaced, const CellArea& block) {
    if (replaced.bottom > block.bottom) {
        clear(sheet, {replaced.left, block.bottom + 1, replaced.right, replaced.bottom});
    }
    if (replaced.right > block.right) {
        clear(sheet,
              {block.right + 1, replaced.top, replaced.right, std::min(replaced.bottom, block.bottom)});
    }
}

void addNote(const Session& session, const SheetRef& sheet, const CellArea& block) {
    if (const std::string note = session.note(); !note.empty()) {
        query<css::sheet::XSheetAnnotationsSupplier>(sheet)->getAnnotations()->insertNew(
            cornerOf(sheet, block), fromUtf8(note));
    }
}

}  // namespace

void activate(const Session&, const DocumentRef& document) {
    const auto view = viewOf(document);
    if (view.is()) {
        query<css::frame::XController>(view)->getFrame()->activate();
    }
}

void activate(const Session&, const DocumentRef& document, const SheetRef& sheet) {
    const auto view = viewOf(document);
    if (view.is() && view->getActiveSheet() != sheet) {
        view->setActiveSheet(sheet);
    }
}

void select(const Session&, const SheetAreas& cells) {
    const auto view = viewOf(cells.document);
    if (view.is()) {
        selectIn(view, cells.sheet, cells.areas.front());
    }
}

void place(Session& session, const SheetAreas& source, const SheetAreas& target, PasteKind kind) {
    const CellArea& from = source.areas.front();
    const CellArea& corner = target.areas.front();
    const CellArea block{corner.left, corner.top, corner.left + from.columns() - 1,
                         corner.top + from.rows() - 1};
    const SheetAreas& replaced = session.replacedReport();
    const bool replaces = kind == PasteKind::All && replaced.sheet.is() &&
                          replaced.document == target.document && isSameSheet(replaced.sheet, target.sheet);
    if (replaces) {
        refuseForeignCells(target.sheet, block, replaced.areas.front());
        refuseObstacles(target.sheet, replaced.areas.front());
    }
    session.beforeChange(target.document);
    refuseObstacles(target.sheet, block);
    switch (kind) {
        case PasteKind::All:
            placeAll(session, source, target, block);
            session.rememberPlaced({target.document, target.sheet, {block}});
            if (replaces) {
                clearRest(target.sheet, replaced.areas.front(), block);
            }
            addNote(session, target.sheet, block);
            if (source.document != target.document) {
                widenColumns(source, target, block);
            }
            break;
        case PasteKind::Values:
            writeCells(target.document, target.sheet, block, readCells(source.document, source.sheet, from));
            break;
        case PasteKind::Formats:
            raiseHostError("The spreadsheet does not paste formats alone.");
    }
}

}  // namespace TBVNonPara::calc
