#pragma once

#include "tbvnonpara/rendering/output.hpp"
#include "tbvnonpara/rendering/report_block.hpp"

namespace TBVNonPara::rendering {

/// Writes every cell of a report as comma-separated values after RFC 4180: lines end in CR LF, numbers are
/// the shortest that read back as the same. Where the field is `visible`, what acts on a terminal is escaped.
void writeCsv(const ReportBlock& report, Output& output, bool visible = false);

}  // namespace TBVNonPara::rendering
