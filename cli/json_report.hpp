#pragma once

#include <string>

#include "cli/messages.hpp"
#include "cli/output.hpp"
#include "cli/report_block.hpp"
#include "cli/results.hpp"

namespace TBVNonPara::cli {

/// Writes a report as one JSON object: the test, the report's address and all its cells, the results by name.
void writeJson(const OfferedTest& test, const std::string& address, const ReportBlock& report,
               const nlohmann::ordered_json& results, Output& output);

/// Writes an error as one JSON object.
void writeJsonError(const Error& error, const Circumstances& circumstances, Output& output);

}  // namespace TBVNonPara::cli
