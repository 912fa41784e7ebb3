#pragma once

#include <string>

#include "cli/columns.hpp"
#include "cli/tests_offered.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::cli {

/// The data of a test as a figure of a page, drawn in SVG: groups as points with box and median, pairs as
/// their differences, a correlation as a scatter of ranks, signs as counted bars, a sequence as it runs.
/// Large data are thinned: the figure stays below half a megabyte whatever the data.
[[nodiscard]] std::string dataPicture(const workbook::EmbeddedApplication& application,
                                      const OfferedTest& test, const ChosenRanges& ranges);

}  // namespace TBVNonPara::cli
