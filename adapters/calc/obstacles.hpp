#pragma once

#include "adapters/calc/addresses.hpp"

namespace TBVNonPara::calc {

/// Raises the host's error where a report cannot arrive whole in a block of cells: on a protected sheet, over
/// merged cells, over a part of an array formula, in rows that a filter hides. Changes nothing.
void refuseObstacles(const SheetRef& sheet, const CellArea& block);

/// Raises tbvNPOutputOccupied with the first cell of the block that holds something and is none of a report
/// that is replaced.
void refuseForeignCells(const SheetRef& sheet, const CellArea& block, const CellArea& replaced);

}  // namespace TBVNonPara::calc
