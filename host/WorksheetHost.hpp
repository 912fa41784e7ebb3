#pragma once

#include "host/Application.hpp"
#include "host/Range.hpp"
#include "host/Workbook.hpp"
#include "host/Worksheet.hpp"
#include "host/WorksheetFunction.hpp"

namespace TBVNonPara {

/// Everything that the library does on a sheet goes through the application object and what it leads to.
using WorksheetHost = Application;

}  // namespace TBVNonPara
