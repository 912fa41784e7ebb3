#pragma once

#include "cli/arguments.hpp"
#include "cli/progress.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::cli {

/// Tests columns each by itself: a report each as text, one table of all in JSON and CSV. Returns the
/// program's status, which is that of a failure when no column could be tested.
[[nodiscard]] int testColumns(const workbook::EmbeddedApplication& application, const Arguments& arguments,
                              Progress& progress);

}  // namespace TBVNonPara::cli
