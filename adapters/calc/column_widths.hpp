#pragma once

#include "adapters/calc/session.hpp"

namespace TBVNonPara::calc {

/// Widens columns under a report that was placed in `block`: so far that its headings, labels and numbers are
/// shown whole where nothing else stands in the column, and so far that its numbers are where something does.
/// Lines of text that run over empty cells to their right do not count. No column becomes narrower.
void widenColumns(const SheetAreas& report, const SheetAreas& target, const CellArea& block);

/// The same for a block that was written where it stands.
void widenColumns(const Context& context, const SheetAreas& block);

}  // namespace TBVNonPara::calc
