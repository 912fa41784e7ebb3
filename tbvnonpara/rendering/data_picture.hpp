#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::rendering {

/// The data of a test as a figure of a page, drawn in SVG: groups as points with box and median, pairs as
/// their differences, a correlation as a scatter of ranks, signs as counted bars, a sequence as it runs.
/// Large data are thinned: the figure stays below half a megabyte whatever the data.
/// y and x are addresses; x may be empty.
[[nodiscard]] std::string dataPicture(const workbook::EmbeddedApplication& application, TBVNPMethod method,
                                      std::string_view y, std::string_view x, bool headers);

}  // namespace TBVNonPara::rendering
