#pragma once

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/report/detail_page.hpp"

namespace TBVNonPara {

/// Writes details onto a worksheet of their own behind the sheet of their report: "Details" or, where that is
/// taken, "Details (2)" and so on. The sentences stand from A3 on, the tables from row 8 on, the notes below.
/// Returns the block that holds them; the report's sheet is the active one afterwards.
///
///     const RangeRef details = writeDetailsSheet(companions, report, page);
///
/// What the host refuses is raised as its error, and the new sheet is gone then. The report stays as it is.
[[nodiscard]] RangeRef writeDetailsSheet(const CompanionLibrary& companions, const RangeRef& report,
                                         const DetailPage& page);

}  // namespace TBVNonPara
