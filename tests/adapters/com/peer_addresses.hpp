#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/host/Worksheet.hpp"

// Addresses as spreadsheet applications take and give them, where the embedded workbook has its own ways.

namespace TBVNonPara::Peer {

/// The address with the active sheet in front of each area that names none, and with whole columns and rows
/// to the end of the sheet; the embedded workbook would take the sheet of the area before, and end columns
/// with their last value. Without an active sheet the address is one of a sheet's own.
[[nodiscard]] std::string asApplicationsReadIt(std::string_view address, std::string_view activeSheet = {});

/// A range's address, "$A:$A" for a whole column.
[[nodiscard]] std::string addressOf(const Range& range);

/// Where a range's first area lies.
[[nodiscard]] Rectangle placeOf(const Range& range);

/// The rectangle around all values of a sheet.
[[nodiscard]] RangeRef usedRange(const Worksheet& sheet);

}  // namespace TBVNonPara::Peer
