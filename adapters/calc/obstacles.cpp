#include "adapters/calc/obstacles.hpp"

#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/util/XMergeable.hpp>
#include <com/sun/star/util/XProtectable.hpp>

#include "adapters/calc/visible_rows.hpp"
#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara::calc {

namespace {

Reference<css::table::XCellRange> blockOf(const SheetRef& sheet, const CellArea& area) {
    return sheet->getCellRangeByPosition(area.left, area.top, area.right, area.bottom);
}

std::string placeOf(const SheetRef& sheet, const CellArea& area) {
    return absoluteAddress(area) + " of the sheet " + toUtf8(nameOf(sheet));
}

void refuseProtected(const SheetRef& sheet) {
    if (query<css::util::XProtectable>(sheet)->isProtected()) {
        raiseHostError("The sheet " + toUtf8(nameOf(sheet)) +
                       " is protected; remove the protection or choose another place for the report.");
    }
}

void refuseMerged(const SheetRef& sheet, const CellArea& block) {
    if (query<css::util::XMergeable>(blockOf(sheet, block))->getIsMerged()) {
        raiseHostError("There are merged cells in " + placeOf(sheet, block) +
                       "; split them or choose another place for the report.");
    }
}

/// The array formula that a cell belongs to; without one, the cell itself.
CellArea arrayAround(const SheetRef& sheet, std::int32_t column, std::int32_t row) {
    const Reference<css::sheet::XSheetCellRange> cell(sheet->getCellRangeByPosition(column, row, column, row),
                                                      css::uno::UNO_QUERY_THROW);
    const auto cursor = given(sheet->createCursorByRange(cell));
    cursor->collapseToCurrentArray();
    return normalised(query<css::sheet::XCellRangeAddressable>(cursor)->getRangeAddress());
}

void refuseArraysAcross(const SheetRef& sheet, const CellArea& block, const CellArea& edge) {
    const auto formulas = query<css::sheet::XCellRangesQuery>(blockOf(sheet, edge))
                              ->queryContentCells(css::sheet::CellFlags::FORMULA);
    for (const css::table::CellRangeAddress& found : given(formulas)->getRangeAddresses()) {
        // Asked about columns that hold nothing yet, the spreadsheet answers with formulas left of them.
        if (!edge.contains(normalised(found))) {
            continue;
        }
        for (sal_Int32 column = found.StartColumn; column <= found.EndColumn; ++column) {
            for (sal_Int32 row = found.StartRow; row <= found.EndRow; ++row) {
                const CellArea array = arrayAround(sheet, column, row);
                if (!block.contains(array)) {
                    raiseHostError("The report needs " + placeOf(sheet, block) +
                                   ", and would cover only a part of the array formula in " +
                                   absoluteAddress(array) +
                                   "; delete the formula or choose another place for the report.");
                }
            }
        }
    }
}

/// What crosses a block's edge has a cell in the block's outermost rows or columns.
void refusePartsOfArrays(const SheetRef& sheet, const CellArea& block) {
    for (const CellArea& edge : {CellArea{block.left, block.top, block.right, block.top},
                                 CellArea{block.left, block.bottom, block.right, block.bottom},
                                 CellArea{block.left, block.top, block.left, block.bottom},
                                 CellArea{block.right, block.top, block.right, block.bottom}}) {
        refuseArraysAcross(sheet, block, edge);
    }
}

// What is pasted over a filter's rows goes into the visible ones alone, and on below the block.
void refuseFiltered(const SheetRef& sheet, const CellArea& block) {
    if (anyFiltered(sheet, hiddenRows(sheet, block.top, block.bottom))) {
        raiseHostError("A filter hides rows of " + placeOf(sheet, block) +
                       ", so that the report would not be seen whole; remove the filter or choose another "
                       "place for the report.");
    }
}

}  // namespace

void refuseForeignCells(const SheetRef& sheet, const CellArea& block, const CellArea& replaced) {
    namespace Flags = css::sheet::CellFlags;
    const auto filled =
        query<css::sheet::XCellRangesQuery>(blockOf(sheet, block))
            ->queryContentCells(Flags::VALUE | Flags::DATETIME | Flags::STRING | Flags::FORMULA);
    for (const css::table::CellRangeAddress& found : filled->getRangeAddresses()) {
        const CellArea cells = normalised(found);
        for (std::int32_t row = cells.top; row <= cells.bottom; ++row) {
            for (std::int32_t column = cells.left; column <= cells.right; ++column) {
                const CellArea cell{column, row, column, row};
                // Asked about columns that hold nothing yet, the spreadsheet answers with cells left of them.
                if (block.contains(cell) && !replaced.contains(cell)) {
                    throw Error(tbvNPOutputOccupied, columnLetters(column) + std::to_string(row + 1) +
                                                         " holds a value and the report needs " +
                                                         placeOf(sheet, block) + '.');
                }
            }
        }
    }
}

void refuseObstacles(const SheetRef& sheet, const CellArea& block) {
    refuseProtected(sheet);
    refuseMerged(sheet, block);
    refusePartsOfArrays(sheet, block);
    refuseFiltered(sheet, block);
}

}  // namespace TBVNonPara::calc
