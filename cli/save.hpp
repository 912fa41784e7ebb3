#pragma once

#include <functional>
#include <string>

#include "cli/arguments.hpp"
#include "tbvnonpara/analysis/run_test.hpp"
#include "tbvnonpara/rendering/output.hpp"

namespace TBVNonPara::cli {

/// Whether the data come from a workbook that a report can be placed into: .xlsx or .xlsm, by its contents.
[[nodiscard]] bool readsWorkbook(const Arguments& arguments);

/// Raises the host's error when the file that is to be saved cannot be, before any work is done.
void checkSaving(const Arguments& arguments);

/// Saves a finished report as the options say; forms other than a workbook are written by `write`. Returns
/// what was saved and where, for the user.
std::string saveReport(const analysis::FinishedTest& finished, const Arguments& arguments,
                       const std::function<void(rendering::Output&)>& write);

/// Saves what `write` writes, in any form but a workbook.
void saveText(const Arguments& arguments, const std::function<void(rendering::Output&)>& write);

}  // namespace TBVNonPara::cli
