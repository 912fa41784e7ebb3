#pragma once

#include <string>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/report/detail_page.hpp"

namespace TBVNonPara {

/// Writes details onto a worksheet of their own behind the sheet of their report: "Details" or, where that is
/// taken, "Details (2)" and so on. The sentences stand from A3 on, the tables from row 8 on, the notes below.
/// Returns the block that holds them; the report's sheet is the active one afterwards.
///
///     const RangeRef details = writeDetailsSheet(companions, report, page);
///
/// What the host refuses is raised as its error, and the new sheet is gone then. The report stays as it is.
[[nodiscard]] TBVNONPARA_API RangeRef writeDetailsSheet(const CompanionLibrary& companions,
                                                        const RangeRef& report, const DetailPage& page);

/// @cond
/// The row of the first table's title, counted from 1.
[[nodiscard]] std::size_t firstTableRowOf(const DetailPage& page);
/// @endcond

/// The same behind any sheet; `source` says where the details come from.
[[nodiscard]] TBVNONPARA_API RangeRef writeDetailsSheet(const CompanionLibrary& companions,
                                                        const WorksheetRef& before, const std::string& source,
                                                        const DetailPage& page);

/// Writes details to the first cell of a range and below, in one step from a sheet that goes again. What is
/// in the way, or does not fit on the sheet, is refused as it is for a report.
[[nodiscard]] TBVNONPARA_API RangeRef placeDetails(const CompanionLibrary& companions, const RangeRef& place,
                                                   const std::string& source, const DetailPage& page,
                                                   bool overWrite);

}  // namespace TBVNonPara
