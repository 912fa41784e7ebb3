#pragma once

#include <string>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/rendering/output.hpp"
#include "tbvnonpara/rendering/report_block.hpp"

namespace TBVNonPara::rendering {

/// What a field of CSV may do where it is read.
struct CsvFields {
    bool plainTexts = false;  ///< a text that a spreadsheet would take for a formula gets a mark in front: '
    bool visible = false;     ///< what acts on a terminal is escaped
};

/// One value as a field: quoted where it must be, empty for an empty one.
[[nodiscard]] TBVNONPARA_API std::string csvField(const CellValue& value, const CsvFields& fields);

/// Writes every cell of a report as comma-separated values after RFC 4180: lines end in CR LF, numbers are
/// the shortest that read back as the same. Every row has a field for every column. O(cells). Raises what
/// Output raises.
TBVNONPARA_API void writeCsv(const ReportBlock& report, Output& output, const CsvFields& fields = {});

}  // namespace TBVNonPara::rendering
