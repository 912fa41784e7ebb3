#pragma once

#include <string>
#include <vector>

#include "cli/arguments.hpp"
#include "tbvnonpara/analysis/run_test.hpp"
#include "tbvnonpara/reshaping/account.hpp"

namespace TBVNonPara::cli {

/// What the data make of a test that a user may not have meant, a sentence or two each. Asked before the
/// report can cover data.
[[nodiscard]] std::vector<std::string> warningsOnData(const workbook::EmbeddedApplication& application,
                                                      const Arguments& arguments,
                                                      const analysis::ChosenRanges& ranges);

/// Groups that may be none: "NA" among names is a name.
[[nodiscard]] std::vector<std::string> warningsOnGroups(const reshaping::Account& account,
                                                        const Arguments& arguments);

/// What a user of the workbook will not see of a report that is placed in it: what lies under charts and
/// pictures. Asked before the workbook is replaced.
[[nodiscard]] std::vector<std::string> warningsOnPlace(const analysis::FinishedTest& finished,
                                                       const Arguments& arguments);

}  // namespace TBVNonPara::cli
