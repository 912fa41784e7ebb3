#pragma once

#include "tbvnonpara/companion/ReportFormatter.hpp"

namespace TBVNonPara {

/// One quiet look: titles bold, headings bold over a thin line, a thin frame around a finished table, body
/// numbers with four decimals. `FormatTable` with the flag True draws the frame and nothing else. A block of
/// one column that is given to `FormatTable` stands beside the numbers, not over them: with either flag it is
/// bold with the line at its right. Titles and bodies look the same with either flag; a body takes back the
/// bold that a heading block around it gave.
[[nodiscard]] ObjectRef<ReportFormatter> createReportFormatter();

/// The style of the report sheet: no interior colour.
[[nodiscard]] ObjectRef<ReportStyle> createReportStyle();

}  // namespace TBVNonPara
