#pragma once

#include "adapters/com/host_object.hpp"
#include "tbvnonpara/host/Range.hpp"
#include "tbvnonpara/host/Workbook.hpp"
#include "tbvnonpara/host/Worksheet.hpp"

namespace TBVNonPara::com {

/// The host's interfaces over objects of the application.
[[nodiscard]] RangeRef toRange(HostObject object);
[[nodiscard]] WorksheetRef toWorksheet(HostObject object);
[[nodiscard]] WorkbookRef toWorkbook(HostObject object);

/// The application's object behind a range or a sheet.
[[nodiscard]] const HostObject& objectOf(const RangeRef& range);
[[nodiscard]] const HostObject& objectOf(const WorksheetRef& worksheet);

}  // namespace TBVNonPara::com
