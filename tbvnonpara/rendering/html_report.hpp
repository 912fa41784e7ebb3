#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/rendering/output.hpp"
#include "tbvnonpara/rendering/pictures/in_html.hpp"
#include "tbvnonpara/rendering/report_block.hpp"

namespace TBVNonPara::rendering {

/// Writes a report as one page that needs nothing else: its tables look as on the sheet, numbers carry their
/// exact value, a picture (SVG, may be empty) stands below. Light or dark as the reader prefers, fit for a
/// phone and for paper. `details` (a section, may be empty) stand at the end.
///
///     writeHtml(report, "Mann-Whitney", dataPicture(tbvNPMannU, data, request.engine()), output);
///
/// `title` is plain text; `picture` and `details` are taken as they are, from dataPicture() and
/// detailsInHtml(). O(cells). Raises what Output raises.
TBVNONPARA_API void writeHtml(const ReportBlock& report, std::string_view title, std::string_view picture,
                              Output& output, std::string_view details = {});

}  // namespace TBVNonPara::rendering
