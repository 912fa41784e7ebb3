#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/analysis/results.hpp"
#include "tbvnonpara/rendering/output.hpp"
#include "tbvnonpara/rendering/report_block.hpp"

namespace TBVNonPara::rendering {

/// Writes a report as one JSON object: the test's name, the report's address and all its cells, the results
/// by name, and warnings where there are any.
void writeJson(std::string_view test, std::string_view address, const ReportBlock& report,
               const std::vector<analysis::NamedResult>& results, Output& output,
               const std::vector<std::string>& warnings = {});

}  // namespace TBVNonPara::rendering
