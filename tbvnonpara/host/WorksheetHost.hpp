#pragma once

#include "tbvnonpara/host/Application.hpp"
#include "tbvnonpara/host/Range.hpp"
#include "tbvnonpara/host/Workbook.hpp"
#include "tbvnonpara/host/Worksheet.hpp"
#include "tbvnonpara/host/WorksheetFunction.hpp"

namespace TBVNonPara {

/// Everything that the library does on a sheet goes through the application object and what it leads to.
using WorksheetHost = Application;

}  // namespace TBVNonPara
