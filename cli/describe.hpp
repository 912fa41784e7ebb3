#pragma once

#include "cli/arguments.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::cli {

/// Prints what the file's sheets hold, column by column, and the commands for tests that the active sheet
/// suggests: as text, JSON or CSV.
void describe(const workbook::EmbeddedApplication& application, const Arguments& arguments);

}  // namespace TBVNonPara::cli
