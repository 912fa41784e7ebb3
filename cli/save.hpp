#pragma once

#include <functional>
#include <string>

#include "cli/arguments.hpp"
#include "cli/output.hpp"
#include "cli/run_test.hpp"

namespace TBVNonPara::cli {

/// Raises the host's error when the file that is to be saved cannot be, before any work is done.
void checkSaving(const Arguments& arguments);

/// Saves a finished report as the options say; forms other than a workbook are written by `write`. Returns
/// what was saved and where, for the user.
std::string saveReport(const FinishedTest& finished, const Arguments& arguments,
                       const std::function<void(Output&)>& write);

}  // namespace TBVNonPara::cli
