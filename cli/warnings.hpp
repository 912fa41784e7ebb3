#pragma once

#include <string>
#include <vector>

#include "cli/arguments.hpp"
#include "tbvnonpara/analysis/run_test.hpp"

namespace TBVNonPara::cli {

/// What a user of the workbook will not see of a report that is placed in it: what lies under charts and
/// pictures. Asked before the workbook is replaced.
[[nodiscard]] std::vector<std::string> warningsOnPlace(const analysis::FinishedTest& finished,
                                                       const Arguments& arguments);

}  // namespace TBVNonPara::cli
